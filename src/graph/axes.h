// The axes layer with its ticks.
#pragma once

#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

/// Black axes through the origin and a tick of two pixels at every whole unit; units that fall on
/// one pixel share a tick. Nothing when the mapping is unusable.
void DrawAxes(const Viewport& viewport, DrawList& list);

}  // namespace kalvex
