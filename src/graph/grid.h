// The grid layer.
#pragma once

#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

inline constexpr Rgb kGridColor = {130, 130, 130};

/// Lines at whole units, more than ten pixels apart. Nothing when the mapping is unusable.
void DrawRectangularGrid(const Viewport& viewport, DrawList& list);

/// One ellipse per whole unit about the origin, from the outside in, each filled white. Rings
/// whose outline does not meet the picture are left out. No rings when both scales are below one
/// pixel per unit; where a ring's box does not fit a pixel coordinate, that ring is left out.
void DrawPolarGrid(const Viewport& viewport, DrawList& list);

/// The grid of a kind: 1 rectangular, 2 polar, anything else none.
void DrawGrid(const Viewport& viewport, int kind, DrawList& list);

}  // namespace kalvex
