// Both kinds of lines are one record each, so that no lighter line crosses over a darker one.
#include "graph/fine_grid.h"

#include <utility>

#include "graph/axis_marks.h"
#include "graph/grid.h"

namespace kalvex {
namespace {

constexpr double kLeastSpacing = 8.0;  ///< pixels

/// How many of the smaller steps make the larger one; 0 when they do not make it exactly. The
/// exponent of the smaller one is the same or one less.
int RatioOf(const NiceStep& larger, const NiceStep& smaller) {
    const int digits = larger.exponent > smaller.exponent ? 10 * larger.digit : larger.digit;
    return digits % smaller.digit == 0 ? digits / smaller.digit : 0;
}

struct GridLines {
    std::vector<double> main;
    std::vector<double> light;
};

GridLines LinesOf(const AxisSpan& span, const NiceStep& step) {
    GridLines lines;
    for (const NiceMark& mark : MarksAt(span, step))
        lines.main.push_back(mark.position);
    const std::optional<NiceStep> light = LightStep(span, step);
    if (!light) return lines;
    const int ratio = RatioOf(step, *light);
    for (const NiceMark& mark : MarksAt(span, *light))
        if (mark.k % ratio != 0) lines.light.push_back(mark.position);
    return lines;
}

void AddLines(const Viewport& viewport, const Rgb& color, const std::vector<double>& columns,
              const std::vector<double>& rows, DrawList& list) {
    const double width = viewport.ClientWidth;
    const double height = viewport.ClientHeight;
    SegmentsRecord lines{{color, 1}, {}};
    for (const double x : columns)
        lines.segments.push_back({{x, 0.0}, {x, height}});
    for (const double y : rows)
        lines.segments.push_back({{0.0, y}, {width, y}});
    if (!lines.segments.empty()) list.records.emplace_back(std::move(lines));
}

}  // namespace

std::optional<NiceStep> LightStep(const AxisSpan& span, const NiceStep& step) {
    for (NiceStep light{step.digit, step.exponent - 1}; light != step; light = NextStep(light))
        if (RatioOf(step, light) != 0 && SpacingOf(span, light) >= kLeastSpacing) return light;
    return std::nullopt;
}

void DrawFineGrid(const Viewport& viewport, const std::optional<NiceStep>& stepX,
                  const std::optional<NiceStep>& stepY, DrawList& list) {
    if (!HasUsableMapping(viewport.view)) return;
    const AxisSpan spanX = SpanX(viewport);
    const AxisSpan spanY = SpanY(viewport);
    const GridLines columns = LinesOf(spanX, stepX ? *stepX : StepFor(spanX));
    const GridLines rows = LinesOf(spanY, stepY ? *stepY : StepFor(spanY));
    AddLines(viewport, kLightGridColor, columns.light, rows.light, list);
    AddLines(viewport, kGridColor, columns.main, rows.main, list);
}

}  // namespace kalvex
