// The axes run through the origin; the ticks stand at the marks of each axis. The end pixel of a
// segment is painted too, so a tick of two pixels ends one pixel beside its start.
#include "graph/axes.h"

#include <cmath>

#include "graph/axis_marks.h"

namespace kalvex {
namespace {

/// Whether the ticks of an axis at this position can be seen.
bool IsNearPicture(double position, double end) {
    const double pixel = std::trunc(position);
    return pixel >= -2.0 && pixel <= end + 2.0;
}

/// The position one pixel beside another, toward smaller or larger pixels (step -1 or 1).
double BesideBy(double step, double position) {
    const double moved = position + step;
    const double pixel = std::trunc(position) + step;
    // Truncation toward zero makes pixel 0 almost two positions wide.
    return std::trunc(moved) == pixel ? moved : pixel;
}

void AddTicksX(const Viewport& viewport, std::vector<Segment>& segments) {
    const AxisLadder ladder = LadderX(viewport.view);
    const double row = viewport.view.OriginY;
    const double end = BesideBy(-1.0, row);
    const auto add = [&](const AxisMark& mark) {
        segments.push_back({{mark.position, row}, {mark.position, end}});
    };
    for (const AxisMark& mark : MarksTowardZero(ladder, 1.0, viewport.ClientWidth))
        add(mark);
    // KEEP: the right-hand ticks are bounded by the height; on a wide picture they stop short of
    // the edge, on a tall one they run on past it.
    for (const AxisMark& mark : MarksAwayFromZero(ladder, 1.0, viewport.ClientHeight))
        add(mark);
}

void AddTicksY(const Viewport& viewport, std::vector<Segment>& segments) {
    const AxisLadder ladder = LadderY(viewport.view);
    const double column = viewport.view.OriginX;
    const double end = BesideBy(1.0, column);
    const auto add = [&](const AxisMark& mark) {
        segments.push_back({{column, mark.position}, {end, mark.position}});
    };
    for (const AxisMark& mark : MarksTowardZero(ladder, 1.0, viewport.ClientHeight))
        add(mark);
    for (const AxisMark& mark : MarksAwayFromZero(ladder, 1.0, viewport.ClientHeight))
        add(mark);
}

}  // namespace

void DrawAxes(const Viewport& viewport, DrawList& list, std::span<const Segment> numberTicks) {
    const ViewWindow& view = viewport.view;
    if (!HasUsableMapping(view)) return;
    const double width = viewport.ClientWidth;
    const double height = viewport.ClientHeight;
    SegmentsRecord lines{{{0, 0, 0}, 1}, {}};
    // KEEP: strictly greater than 0, so an axis on the picture's first column or row is not drawn.
    if (view.OriginX > 0.0) lines.segments.push_back({{view.OriginX, 0.0}, {view.OriginX, height}});
    if (view.OriginY > 0.0) lines.segments.push_back({{0.0, view.OriginY}, {width, view.OriginY}});
    // KEEP: the ticks are drawn even when their axis is not.
    if (IsNearPicture(view.OriginY, viewport.ClientHeight)) AddTicksX(viewport, lines.segments);
    if (IsNearPicture(view.OriginX, viewport.ClientWidth)) AddTicksY(viewport, lines.segments);
    lines.segments.insert(lines.segments.end(), numberTicks.begin(), numberTicks.end());
    if (!lines.segments.empty()) list.records.emplace_back(std::move(lines));
}

}  // namespace kalvex
