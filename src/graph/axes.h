// The axes layer with its ticks.
#pragma once

#include <span>

#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

/// Black axes through the origin and a tick of two pixels at every whole unit; units that fall on
/// one pixel share a tick. Then the ticks of the numbers (see NumberLayout). Draws nothing when the
/// mapping cannot be used (see HasUsableMapping).
void DrawAxes(const Viewport& viewport, DrawList& list, std::span<const Segment> numberTicks = {});

}  // namespace kalvex
