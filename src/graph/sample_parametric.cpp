// X and Y are evaluated at the same parameters, one after the other.
#include <algorithm>

#include "graph/curves.h"

namespace kalvex {

void PlotParametric(FunctionEntry& entry, const Viewport& viewport, double minParam,
                    double maxParam, const Pen& pen, DrawList& list, const CurveWork& work) {
    const ViewWindow& view = viewport.view;
    auto count = static_cast<std::size_t>(std::max(viewport.ClientWidth, 0));
    // KEEP: divided by N, not N - 1, so the last sample falls one step short of MaxParam.
    const double step =
        (maxParam - minParam) / static_cast<double>(std::max<std::size_t>(count, 1));
    std::vector<double> parameters(count);
    for (std::size_t i = 0; i < count; ++i)
        parameters[i] = minParam + static_cast<double>(i) * step;
    std::vector<double> xs(count);
    std::vector<double> ys(count);
    std::vector<std::int32_t> xCodes(count);
    std::vector<std::int32_t> yCodes(count);
    count = EvaluateInPieces(count, work, [&](std::size_t first, std::size_t n) {
        const auto piece = std::span(parameters).subspan(first, n);
        EvaluateInto(entry.compiled[0], piece, 0.0, std::span(xs).subspan(first, n),
                     std::span(xCodes).subspan(first, n), work.interruption);
        EvaluateInto(entry.compiled[1], piece, 0.0, std::span(ys).subspan(first, n),
                     std::span(yCodes).subspan(first, n), work.interruption);
    });

    const auto isDefined = [&](std::size_t i) {
        return xs[i] != UndefinedValue && ys[i] != UndefinedValue;
    };
    SampleCache samples(count);
    std::vector<std::uint8_t> joined(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t status = xCodes[i] != 0 ? xCodes[i] : yCodes[i];
        samples[i] = {0, 0, xs[i], ys[i], parameters[i], status};
        joined[i] = i + 1 < count && isDefined(i) && isDefined(i + 1);
        if (joined[i] == 0) continue;
        samples[i].column = WorldToScreenX(view, xs[i]);
        samples[i].row = WorldToScreenY(view, ys[i]);
    }
    entry.samples = std::move(samples);
    DrawJoined(entry.samples, joined, viewport, pen, list);
}

}  // namespace kalvex
