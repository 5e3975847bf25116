// The axes run through the origin; the ticks stand at the marks of each axis. The end pixel of a
// segment is painted too, so a tick of two pixels ends one pixel beside its start.
#include "graph/axes.h"

#include "graph/axis_marks.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

/// Whether the ticks of an axis can be seen. The ends of ticks far off the picture might overflow.
bool IsNearPicture(std::int32_t position, std::int32_t end) {
    return position >= -2 && position <= static_cast<std::int64_t>(end) + 2;
}

void AddTicksX(const Viewport& viewport, std::int32_t row, std::vector<Segment>& segments) {
    const AxisLadder ladder = LadderX(viewport.view);
    const auto add = [&](const AxisMark& mark) {
        segments.push_back({{mark.pixel, row}, {mark.pixel, row - 1}});
    };
    for (const AxisMark& mark : MarksTowardZero(ladder, 1.0, viewport.ClientWidth))
        add(mark);
    // KEEP: the right-hand ticks are bounded by the height; on a wide picture they stop short of
    // the edge, on a tall one they run on past it.
    for (const AxisMark& mark : MarksAwayFromZero(ladder, 1.0, viewport.ClientHeight))
        add(mark);
}

void AddTicksY(const Viewport& viewport, std::int32_t column, std::vector<Segment>& segments) {
    const AxisLadder ladder = LadderY(viewport.view);
    const auto add = [&](const AxisMark& mark) {
        segments.push_back({{column, mark.pixel}, {column + 1, mark.pixel}});
    };
    for (const AxisMark& mark : MarksTowardZero(ladder, 1.0, viewport.ClientHeight))
        add(mark);
    for (const AxisMark& mark : MarksAwayFromZero(ladder, 1.0, viewport.ClientHeight))
        add(mark);
}

}  // namespace

void DrawAxes(const Viewport& viewport, DrawList& list) {
    const ViewWindow& view = viewport.view;
    if (!HasUsableMapping(view)) return;
    const std::int32_t column = TruncateToInt32(view.OriginX);
    const std::int32_t row = TruncateToInt32(view.OriginY);
    SegmentsRecord lines{{{0, 0, 0}, 1}, {}};
    // KEEP: strictly greater than 0, so an axis on the picture's first column or row is not drawn.
    if (view.OriginX > 0.0)
        lines.segments.push_back({{column, 0}, {column, viewport.ClientHeight}});
    if (view.OriginY > 0.0) lines.segments.push_back({{0, row}, {viewport.ClientWidth, row}});
    // KEEP: the ticks are drawn even when their axis is not.
    if (IsNearPicture(row, viewport.ClientHeight)) AddTicksX(viewport, row, lines.segments);
    if (IsNearPicture(column, viewport.ClientWidth)) AddTicksY(viewport, column, lines.segments);
    if (!lines.segments.empty()) list.records.emplace_back(std::move(lines));
}

}  // namespace kalvex
