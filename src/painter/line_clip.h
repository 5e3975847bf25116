// Clipping of lines to the range of coordinates that QPainter draws correctly.
#pragma once

#include <QLineF>
#include <QRectF>
#include <optional>

#include "graph/draw_list.h"

namespace kalvex {

/// The line from pixel to pixel, as classic pictures show a segment.
[[nodiscard]] QLineF PixelLine(const Segment& segment);

/// The line from position to position, each coordinate bounded to the range of pixels. An end that
/// is not-a-number gives a line that misses every rectangle.
[[nodiscard]] QLineF ExactLine(const Segment& segment);

/// The part of a line inside a rectangle. A line that lies inside is returned unchanged, so that
/// clipping does not move its ends. Nothing when it misses the rectangle. Coordinates must be in
/// the range of pixels or not-a-number.
[[nodiscard]] std::optional<QLineF> ClipLine(const QLineF& whole, const QRectF& bounds);

/// The picture and a margin of 4096 pixels around it. With the widest pen the end of a clipped line
/// still lies outside the picture, and all coordinates fit the fixed-point numbers of Qt's raster
/// engine.
[[nodiscard]] QRectF DrawableBounds(const DrawList& list);

}  // namespace kalvex
