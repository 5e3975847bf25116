// Where a curve crosses the sides of the squares of its contours.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "graph/contours.h"

namespace kalvex {

/// World coordinates of the points at which G is known. A pixel has the number of its centre; a
/// half pixel more or less gives the middle of an edge. The numbers are doubled.
struct HalfPixelPoints {
    double left = 0.0;  ///< x of column 0
    double top = 0.0;   ///< y of row 0
    double stepX = 0.0;
    double stepY = 0.0;
};

[[nodiscard]] HalfPixelPoints HalfPixelPointsOf(const Viewport& viewport);

[[nodiscard]] WorldPoint WorldOf(const HalfPixelPoints& points, const PixelPoint& halves);

/// The two ends of the side on which a crossing lies, in half pixels.
[[nodiscard]] std::array<PixelPoint, 2> EndsOf(const Crossing& crossing);

/// The world points of all crossings. Between its ends G changes its sign at such a point, be it a
/// zero, a pole or the border of where it is defined. Not complete when `interruption` stopped it.
[[nodiscard]] std::vector<WorldPoint> PlacesOf(std::span<const Crossing> crossings,
                                               const HalfPixelPoints& points,
                                               const CompiledExpression& expression,
                                               Interruption* interruption);

}  // namespace kalvex
