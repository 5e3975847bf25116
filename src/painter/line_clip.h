// Clipping of lines to the range of coordinates that QPainter draws correctly.
#pragma once

#include <QLineF>
#include <QRectF>
#include <optional>

#include "graph/draw_list.h"

namespace kalvex {

/// The part of a segment inside a rectangle. A segment that lies inside is returned unchanged, so
/// that clipping does not move its ends. Nothing when it misses the rectangle.
[[nodiscard]] std::optional<QLineF> ClipSegment(const Segment& segment, const QRectF& bounds);

/// The picture and a margin of 4096 pixels around it. With the widest pen the end of a clipped line
/// still lies outside the picture, and all coordinates fit the fixed-point numbers of Qt's raster
/// engine.
[[nodiscard]] QRectF DrawableBounds(const DrawList& list);

}  // namespace kalvex
