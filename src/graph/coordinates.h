// The layer of coordinate numbers.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "graph/draw_list.h"
#include "graph/nice_numbers.h"
#include "graph/number_places.h"
#include "graph/viewport.h"

namespace kalvex {

/// Numbers of both axes, with what else depends on where they stand.
struct NumberLayout {
    std::vector<TextRecord> numbers;
    /// Ticks at numbers that do not stand at whole units as the grid has them.
    std::vector<Segment> ticks;
    /// The steps of the numbers of x and y, when they are 1, 2 or 5 times a power of ten.
    std::optional<NiceStep> stepX;
    std::optional<NiceStep> stepY;
};

/// Black numbers along both axes at multiples of the grid's step, under the x axis and left of the
/// y axis; along the nearest edge where the axis is off the picture. The multiple is 1, 2 or 5
/// times a power of ten, the smallest whose numbers do not touch. A number that would be cut or
/// overlap another is left out; zero is drawn once.
///
/// Where fewer than two such numbers of an axis can be read, or their pixels are not known to a
/// pixel because the origin is too far away, its numbers are those of PlaceNiceNumbers. So are,
/// with `niceSteps`, all whose step is not 1, 2 or 5 times a power of ten.
///
/// Nothing when the mapping cannot be used.
[[nodiscard]] NumberLayout LayoutNumbers(const Viewport& viewport, const MeasureText& measure,
                                         bool niceSteps);

/// Draws the numbers of LayoutNumbers.
void DrawCoordinates(const Viewport& viewport, const MeasureText& measure, DrawList& list);

}  // namespace kalvex
