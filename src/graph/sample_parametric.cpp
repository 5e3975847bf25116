// One pass for X and one for Y over the same parameters.
#include <algorithm>

#include "graph/curves.h"

namespace kalvex {

void PlotParametric(FunctionEntry& entry, const Viewport& viewport, double minParam,
                    double maxParam, const Pen& pen, DrawList& list) {
    const ViewWindow& view = viewport.view;
    const auto count = static_cast<std::size_t>(std::max(viewport.ClientWidth, 0));
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
    EvaluateInto(entry.compiled[0], parameters, 0.0, xs, xCodes);
    EvaluateInto(entry.compiled[1], parameters, 0.0, ys, yCodes);

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
