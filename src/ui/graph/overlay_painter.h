// Paints the overlay of the pick modes.
#pragma once

#include <QRect>
#include <QSize>

#include "graph/overlay.h"

class QPainter;

namespace kalvex {

/// Where the read-out stands: at the right under the upper band, at the left when the cross would
/// be covered there. Never wider than the picture; long texts are wrapped.
QRect ReadoutBox(const Overlay& overlay, const QSize& picture, int textHeight);

/// Paints it over a picture of a size; legible over any curve.
void PaintOverlay(QPainter& painter, const Overlay& overlay, const QSize& picture, int textHeight);

}  // namespace kalvex
