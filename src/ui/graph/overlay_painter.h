// Paints the overlay of the pick modes.
#pragma once

#include <QRect>
#include <QSize>

#include "graph/overlay.h"

class QPainter;

namespace kalvex {

/// The place of the read-out: at the right below the upper band, or at the left when it would cover
/// the cross at the right. Never wider than the picture; long texts are wrapped.
[[nodiscard]] QRect ReadoutBox(const Overlay& overlay, const QSize& picture, int textHeight);

/// Paints the overlay over a picture of the given size. It can be read over any curve.
void PaintOverlay(QPainter& painter, const Overlay& overlay, const QSize& picture, int textHeight);

}  // namespace kalvex
