// Changes of the visible rectangle about a point and to a box.
#pragma once

#include "graph/graph_state.h"

namespace kalvex {

/// Makes `centre` the middle of the window and its extents Xfactor and Yfactor times smaller (zoom
/// in) or larger (zoom out). A factor of 0 or less, or one that is not finite, is used as it is and
/// may give infinite bounds. With any other factor an axis keeps its bounds where the new ones
/// would be infinite, not-a-number or equal, so that zooming back is always possible.
void ZoomAbout(Viewport& viewport, const WorldPoint& centre, ZoomDirection direction);

/// Makes the bounds of two opposite corners. Changes nothing and returns false when the corners
/// have the same x or the same y, or a coordinate that is not finite.
[[nodiscard]] bool ZoomToBox(Viewport& viewport, const WorldPoint& first, const WorldPoint& second);

/// Multiplies the extents of the window by factors; the world point at a pixel stays there. An axis
/// keeps its bounds when the new ones would be infinite, not-a-number or equal.
void ZoomAtPixel(Viewport& viewport, const PixelPoint& fixed, double extentX, double extentY);

/// Middle pixel of the client area.
[[nodiscard]] PixelPoint MiddleOf(const Viewport& viewport);

}  // namespace kalvex
