// Lines of any length brought into the range that QPainter draws rightly.
#pragma once

#include <QLineF>
#include <QRectF>
#include <optional>

#include "graph/draw_list.h"

namespace kalvex {

/// The part of a segment inside a rectangle; the segment itself, unrounded, when it lies inside.
/// Nothing when it misses the rectangle.
std::optional<QLineF> ClipSegment(const Segment& segment, const QRectF& bounds);

/// The picture and a margin of 4096 pixels around it: wide enough that a cut end is never seen
/// under the widest pen, small enough for the fixed-point coordinates of the raster engine.
QRectF DrawableBounds(const DrawList& list);

}  // namespace kalvex
