// The rectangular grid has a line at each mark of both axes. The origin is a mark in both
// directions, but each pixel gets one line only. In the polar grid, ring k meets the picture only
// when k lies between the least and the greatest value of sqrt((dx/ScaleX)^2 + (dy/ScaleY)^2) over
// the picture. A larger ring would only fill the picture with the white that it has already, and a
// smaller one lies outside.
#include "graph/grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/axis_marks.h"

namespace kalvex {
namespace {

/// The grid lines across one axis, in no particular order, no two on one pixel.
std::vector<AxisMark> GridMarks(AxisLadder ladder, std::int32_t end) {
    ladder.units = GridStep(ladder.scale);
    std::vector<AxisMark> marks = MarksTowardZero(ladder, 0.0, end);
    const std::size_t before = marks.size();
    for (const AxisMark& mark : MarksAwayFromZero(ladder, 0.0, end))
        if (before == 0 || mark.pixel != marks.front().pixel) marks.push_back(mark);
    return marks;
}

/// Distance in whole pixels from the origin to the farthest corner of the picture.
double FarthestCorner(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    const double dx =
        std::max(std::fabs(view.OriginX), std::fabs(view.OriginX - viewport.ClientWidth));
    const double dy =
        std::max(std::fabs(view.OriginY), std::fabs(view.OriginY - viewport.ClientHeight));
    const double squared = dx * dx + dy * dy;
    // Up to this distance the truncated square is exact in a double. Beyond it hypot is used, which
    // cannot overflow.
    if (squared < 9007199254740992.0) return std::trunc(std::sqrt(std::trunc(squared)));
    return std::trunc(std::hypot(dx, dy));
}

/// Least and greatest distance from a point to an interval.
struct Reach {
    double least;
    double greatest;
};

Reach ReachOf(double origin, double end) {
    // Truncating a ring's box moves its outline by less than two pixels.
    const double low = -2.0 - origin;
    const double high = end + 2.0 - origin;
    const double least = low > 0.0 ? low : high < 0.0 ? -high : 0.0;
    return {least, std::max(std::fabs(low), std::fabs(high))};
}

/// Rings k that may meet the picture, as whole numbers first <= k <= last.
struct RingRange {
    double first;
    double last;
};

RingRange RingsOnPicture(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    const double scaleX = std::fabs(view.ScaleX);
    const double scaleY = std::fabs(view.ScaleY);
    const double spacing = std::trunc(std::max(scaleX, scaleY));
    if (spacing < 1.0) return {1.0, 0.0};
    const double count = std::trunc(FarthestCorner(viewport) / spacing);
    const Reach x = ReachOf(view.OriginX, viewport.ClientWidth);
    const Reach y = ReachOf(view.OriginY, viewport.ClientHeight);
    const double least = std::hypot(x.least / scaleX, y.least / scaleY);
    const double greatest = std::hypot(x.greatest / scaleX, y.greatest / scaleY);
    return {std::max(1.0, std::floor(least)), std::min(count, std::ceil(greatest))};
}

bool FitsPixels(double value) {
    return std::fabs(value) < 2147483647.0;
}

EllipseRecord Ring(double left, double top, double right, double bottom) {
    EllipseRecord ring;
    ring.pen = {kGridColor, 1};
    ring.filled = true;
    ring.fill = {255, 255, 255};
    ring.left = left;
    ring.top = top;
    ring.right = right;
    ring.bottom = bottom;
    return ring;
}

}  // namespace

void DrawRectangularGrid(const Viewport& viewport, DrawList& list) {
    if (!HasUsableMapping(viewport.view)) return;
    SegmentsRecord lines{{kGridColor, 1}, {}};
    const double width = viewport.ClientWidth;
    const double height = viewport.ClientHeight;
    for (const AxisMark& mark : GridMarks(LadderX(viewport.view), viewport.ClientWidth))
        lines.segments.push_back({{mark.position, 0.0}, {mark.position, height}});
    for (const AxisMark& mark : GridMarks(LadderY(viewport.view), viewport.ClientHeight))
        lines.segments.push_back({{0.0, mark.position}, {width, mark.position}});
    if (!lines.segments.empty()) list.records.emplace_back(std::move(lines));
}

void DrawPolarGrid(const Viewport& viewport, DrawList& list) {
    const ViewWindow& view = viewport.view;
    if (!HasUsableMapping(view) || viewport.ClientWidth <= 0 || viewport.ClientHeight <= 0) return;
    const RingRange range = RingsOnPicture(viewport);
    if (!(range.last >= range.first)) return;
    // Very flat rings far from their centre can be millions on a few pixels. The picture is grey
    // there in any case, so only a few rings per pixel are drawn.
    const double limit = 4.0 * (static_cast<double>(viewport.ClientWidth) + viewport.ClientHeight);
    const double stride = std::max(1.0, std::ceil((range.last - range.first + 1.0) / limit));
    const double scaleX = std::fabs(view.ScaleX);
    const double scaleY = std::fabs(view.ScaleY);
    for (double k = range.last; k >= range.first; k -= stride) {
        const double left = view.OriginX - k * scaleX;
        const double top = view.OriginY - k * scaleY;
        const double right = view.OriginX + k * scaleX;
        const double bottom = view.OriginY + k * scaleY;
        // KEEP: the rings are filled and drawn from the outside in, so each one covers the inside
        // of the larger one.
        if (FitsPixels(left) && FitsPixels(top) && FitsPixels(right) && FitsPixels(bottom))
            list.records.emplace_back(Ring(left, top, right, bottom));
        if (k - stride == k) break;
    }
}

void DrawGrid(const Viewport& viewport, int kind, DrawList& list) {
    if (kind == 1) DrawRectangularGrid(viewport, list);
    if (kind == 2) DrawPolarGrid(viewport, list);
}

}  // namespace kalvex
