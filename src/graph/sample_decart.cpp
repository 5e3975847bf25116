// All arguments are evaluated in one pass at Xmin + i * h. The stored x is another number: a
// running sum, whose rounding differs in the last places.
#include <algorithm>

#include "graph/curves.h"

namespace kalvex {

SampleCache SampleDecart(const CompiledExpression& expression, const Viewport& viewport,
                         const CurveWork& work) {
    const ViewWindow& view = viewport.view;
    auto count = static_cast<std::size_t>(std::max(viewport.ClientWidth, 0));
    // A picture of one column has no interval between columns; its only sample is the left edge.
    const double step =
        count > 1 ? (view.Xmax - view.Xmin) / (static_cast<double>(count) - 1.0) : 0.0;
    std::vector<double> arguments(count);
    for (std::size_t i = 0; i < count; ++i)
        arguments[i] = view.Xmin + static_cast<double>(i) * step;
    std::vector<double> values(count);
    std::vector<std::int32_t> codes(count);
    count = EvaluateInPieces(count, work, [&](std::size_t first, std::size_t n) {
        EvaluateInto(expression, std::span(arguments).subspan(first, n), 0.0,
                     std::span(values).subspan(first, n), std::span(codes).subspan(first, n),
                     work.interruption);
    });

    SampleCache samples(count);
    // KEEP: repeated addition, not Xmin + i * h; trace, analysis and exported tables show this x.
    double x = view.Xmin;
    for (std::size_t i = 0; i < count; ++i, x += step) {
        CurveSample& sample = samples[i];
        sample = {0, 0, x, values[i], 0.0, codes[i]};
        const bool plotted =
            values[i] != UndefinedValue && (i + 1 == count || values[i + 1] != UndefinedValue);
        if (!plotted) continue;
        sample.column = WorldToScreenX(view, x);
        sample.row = WorldToScreenY(view, values[i]);
    }
    return samples;
}

void PlotDecart(FunctionEntry& entry, const Viewport& viewport, const Pen& pen, DrawList& list,
                const CurveWork& work) {
    entry.samples = SampleDecart(entry.compiled[0], viewport, work);
    DrawRuns(entry.samples, viewport, pen, list);
}

}  // namespace kalvex
