// The frame around the control that has the keyboard focus.
#pragma once

#include <QPalette>
#include <QRect>

class QPainter;

namespace kalvex {

/// Draws a frame two pixels wide inside a rectangle, in the palette's highlight, moved until it has
/// the contrast of 3:1 to the ground that the accessibility guidelines ask of controls.
void DrawFocusFrame(QPainter& painter, const QRect& place, const QPalette& palette,
                    QPalette::ColorRole ground);

}  // namespace kalvex
