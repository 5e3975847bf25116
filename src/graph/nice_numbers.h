// Numbers of an axis at 1, 2 or 5 times a power of ten, with ticks of their own.
#pragma once

#include <cstddef>
#include <vector>

#include "graph/nice_steps.h"
#include "graph/number_places.h"

namespace kalvex {

enum class AxisOf { X, Y };

struct NiceNumbers {
    NiceStep step;
    std::vector<Segment> ticks;
    std::size_t count = 0;  ///< of numbers that were placed
};

/// Places numbers at the smallest step from StepFor on whose numbers do not touch; at the one that
/// shows the most numbers when there is none. They stand under the x axis and left of the y axis;
/// along the nearest edge where the axis is off the picture or the numbers would not fit beside it.
/// Ticks are four pixels long and stand at the axis or at that edge. The number at the origin is
/// left out when both axes meet on the picture, because it belongs to both. The bounds must be
/// finite and different.
[[nodiscard]] NiceNumbers PlaceNiceNumbers(NumberPlaces& places, AxisOf axis);

/// The marks of one axis, as PlaceNiceNumbers uses them.
[[nodiscard]] AxisSpan SpanOf(const Viewport& viewport, AxisOf axis);

}  // namespace kalvex
