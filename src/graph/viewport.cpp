// The mapping is linear and stored as origin and scale. Bounds are not checked here: equal or
// infinite ones make the derived numbers infinite or not-a-number, and the conversion to pixels
// turns those into defined integers.
#include "graph/viewport.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "numbers/truncate.h"

namespace kalvex {
namespace {

struct Bounds {
    double Xmin;
    double Xmax;
    double Ymin;
    double Ymax;
};

// KEEP: 9.4245 is the short value the Trig window was published with, not three times pi.
constexpr std::array<Bounds, 7> kQuickWindows = {{
    {-6.5, 6.5, -3.3, 3.3},
    {-9.4245, 9.4245, -1.5, 1.5},
    {-0.5, 5.5, -3.75, 2.75},
    {-2.2, 2.2, -0.5, 4.0},
    {-6.5, 6.5, -0.5, 8.0},
    {-6.5, 6.5, -8.0, 0.5},
    {-10.0, 10.0, -10.0, 10.0},
}};

/// Shifts a pair of bounds, unless one of them would not be finite or two different bounds would
/// become equal.
void Shift(double& low, double& high, double distance) {
    if (!std::isfinite(low + distance) || !std::isfinite(high + distance)) return;
    if (low != high && low + distance == high + distance) return;
    low += distance;
    high += distance;
}

}  // namespace

void LayoutViewport(Viewport& viewport, std::int32_t clientWidth, std::int32_t clientHeight) {
    viewport.ClientWidth = clientWidth;
    viewport.ClientHeight = clientHeight;
    ViewWindow& view = viewport.view;
    const double width = clientWidth;
    const double height = clientHeight;
    const double unitsX = view.Xmax - view.Xmin;
    const double unitsY = view.Ymax - view.Ymin;
    view.OriginX = -(width * view.Xmin) / unitsX;
    view.OriginY = height * view.Ymax / unitsY;
    // KEEP: the scale spreads the window over W pixels although curves are sampled over W - 1
    // intervals; saved windows and pictures depend on both.
    view.ScaleX = width / unitsX;
    view.ScaleY = height / unitsY;
    view.StepX = unitsX * 0.1;
    view.StepY = unitsY * 0.1;
}

void LayoutViewport(Viewport& viewport) {
    LayoutViewport(viewport, viewport.ClientWidth, viewport.ClientHeight);
}

double PositionX(const ViewWindow& view, double x) {
    return view.OriginX + view.ScaleX * x;
}

double PositionY(const ViewWindow& view, double y) {
    return view.OriginY - view.ScaleY * y;
}

std::int32_t WorldToScreenX(const ViewWindow& view, double x) {
    return TruncateToInt32(PositionX(view, x));
}

std::int32_t WorldToScreenY(const ViewWindow& view, double y) {
    return TruncateToInt32(PositionY(view, y));
}

WorldPoint ScreenToWorld(const Viewport& viewport, std::int32_t column, std::int32_t row) {
    const ViewWindow& view = viewport.view;
    const double width = viewport.ClientWidth;
    const double height = viewport.ClientHeight;
    return {((width - column) * view.Xmin + column * view.Xmax) / width,
            view.Ymax - (view.Ymax - view.Ymin) * row / height};
}

double PixelStep(double low, double high, std::int32_t pixels) {
    return pixels > 1 ? (high - low) / (pixels - 1.0) : 0.0;
}

void SaveAsPrevious(Viewport& viewport) {
    viewport.PreviousWindow = viewport.view;
}

void RestorePrevious(Viewport& viewport) {
    viewport.view.Xmin = viewport.PreviousWindow.Xmin;
    viewport.view.Xmax = viewport.PreviousWindow.Xmax;
    viewport.view.Ymin = viewport.PreviousWindow.Ymin;
    viewport.view.Ymax = viewport.PreviousWindow.Ymax;
}

void ApplyQuickWindow(Viewport& viewport, QuickWindow preset) {
    SaveAsPrevious(viewport);
    const Bounds& bounds = kQuickWindows[static_cast<std::size_t>(preset)];
    viewport.view.Xmin = bounds.Xmin;
    viewport.view.Xmax = bounds.Xmax;
    viewport.view.Ymin = bounds.Ymin;
    viewport.view.Ymax = bounds.Ymax;
}

void MoveBounds(Viewport& viewport, double right, double up) {
    Shift(viewport.view.Xmin, viewport.view.Xmax, right);
    Shift(viewport.view.Ymin, viewport.view.Ymax, up);
}

void PanBy(Viewport& viewport, std::int32_t columns, std::int32_t rows) {
    MoveBounds(viewport, -static_cast<double>(columns) / viewport.view.ScaleX,
               rows / viewport.view.ScaleY);
}

}  // namespace kalvex
