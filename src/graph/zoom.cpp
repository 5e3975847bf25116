// New bounds are computed for each axis and taken when they can be used. Bounds that have become
// equal or infinite could never be zoomed back, so a step that would lead there is left out.
#include "graph/zoom.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

bool IsUsable(double low, double high) {
    return std::isfinite(low) && std::isfinite(high) && low != high;
}

void TakeIfUsable(double& low, double& high, double newLow, double newHigh) {
    if (!IsUsable(newLow, newHigh)) return;
    low = newLow;
    high = newHigh;
}

void ZoomAxis(double& low, double& high, double centre, double factor, ZoomDirection direction) {
    const double half = direction == ZoomDirection::In ? (high - low) / (factor * 2.0)
                                                       : (high - low) * factor * 0.5;
    if (factor > 0.0 && std::isfinite(factor)) {
        TakeIfUsable(low, high, centre - half, centre + half);
    } else {
        // KEEP: a factor from a damaged store is used as it is.
        low = centre - half;
        high = centre + half;
    }
}

void StretchAxis(double& low, double& high, double fixed, double extent) {
    TakeIfUsable(low, high, fixed - (fixed - low) * extent, fixed + (high - fixed) * extent);
}

}  // namespace

void ZoomAbout(Viewport& viewport, const WorldPoint& centre, ZoomDirection direction) {
    ViewWindow& view = viewport.view;
    ZoomAxis(view.Xmin, view.Xmax, centre.x, view.Xfactor, direction);
    ZoomAxis(view.Ymin, view.Ymax, centre.y, view.Yfactor, direction);
}

bool ZoomToBox(Viewport& viewport, const WorldPoint& first, const WorldPoint& second) {
    if (!IsUsable(first.x, second.x) || !IsUsable(first.y, second.y)) return false;
    ViewWindow& view = viewport.view;
    view.Xmin = std::min(first.x, second.x);
    view.Xmax = std::max(first.x, second.x);
    view.Ymin = std::min(first.y, second.y);
    view.Ymax = std::max(first.y, second.y);
    return true;
}

void ZoomAtPixel(Viewport& viewport, const PixelPoint& fixed, double extentX, double extentY) {
    const WorldPoint point = ScreenToWorld(viewport, fixed.x, fixed.y);
    ViewWindow& view = viewport.view;
    if (extentX != 1.0) StretchAxis(view.Xmin, view.Xmax, point.x, extentX);
    if (extentY != 1.0) StretchAxis(view.Ymin, view.Ymax, point.y, extentY);
}

PixelPoint MiddleOf(const Viewport& viewport) {
    return {viewport.ClientWidth / 2, viewport.ClientHeight / 2};
}

}  // namespace kalvex
