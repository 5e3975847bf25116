// The grid layer.
#pragma once

#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

inline constexpr Rgb kGridColor = {130, 130, 130};

/// Lines at whole units, more than ten pixels apart. Draws nothing when the mapping cannot be used.
void DrawRectangularGrid(const Viewport& viewport, DrawList& list);

/// One ellipse per whole unit about the origin, from the outside in, each filled white. Rings
/// whose outline does not meet the picture are left out. No rings when both scales are below one
/// pixel per unit. A ring whose box does not fit into pixel coordinates is left out.
void DrawPolarGrid(const Viewport& viewport, DrawList& list);

/// Draws the grid of a kind: 1 rectangular, 2 polar, any other number none.
void DrawGrid(const Viewport& viewport, int kind, DrawList& list);

}  // namespace kalvex
