// The layer of coordinate numbers.
#pragma once

#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

inline constexpr std::int32_t kCoordinateHeight = 10;

/// Black numbers along both axes at multiples of the grid's step, under the x axis and left of the
/// y axis; along the nearest edge where the axis is off the picture. The multiple is 1, 2 or 5
/// times a power of ten, the smallest whose numbers do not touch. A number that would be cut or
/// overlap another is left out; zero is drawn once. Draws nothing when the mapping cannot be used.
void DrawCoordinates(const Viewport& viewport, const MeasureText& measure, DrawList& list);

}  // namespace kalvex
