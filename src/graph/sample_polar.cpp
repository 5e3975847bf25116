// One sample every two degrees. A sample is plotted when it and the next one are defined; then the
// line between them is drawn, however far apart they lie.
#include <algorithm>
#include <cmath>

#include "graph/curves.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr double kTwoDegrees = 0.03490658503988659;
constexpr std::int32_t kMaxSamples = 180'000;  ///< a thousand turns

}  // namespace

void PlotPolar(FunctionEntry& entry, const Viewport& viewport, double maxAngle, const Pen& pen,
               DrawList& list, const CurveWork& work) {
    const ViewWindow& view = viewport.view;
    auto count =
        static_cast<std::size_t>(std::clamp(TruncateToInt32(maxAngle * 180.0), 0, kMaxSamples));
    std::vector<double> angles(count);
    for (std::size_t i = 0; i < count; ++i)
        angles[i] = static_cast<double>(i) * kTwoDegrees;
    std::vector<double> radii(count);
    std::vector<std::int32_t> codes(count);
    count = EvaluateInPieces(count, work, [&](std::size_t first, std::size_t n) {
        EvaluateInto(entry.compiled[0], std::span(angles).subspan(first, n), 0.0,
                     std::span(radii).subspan(first, n), std::span(codes).subspan(first, n),
                     work.interruption);
    });

    SampleCache samples(count);
    std::vector<std::uint8_t> joined(count);
    for (std::size_t i = 0; i < count; ++i) {
        // An undefined radius makes both coordinates undefined, so that a reader of the cache
        // sees it in either of them.
        const bool defined = radii[i] != UndefinedValue;
        const double x = defined ? radii[i] * std::cos(angles[i]) : UndefinedValue;
        const double y = defined ? radii[i] * std::sin(angles[i]) : UndefinedValue;
        samples[i] = {0, 0, x, y, angles[i], codes[i]};
        joined[i] = i + 1 < count && defined && radii[i + 1] != UndefinedValue;
        if (joined[i] == 0) continue;
        samples[i].column = WorldToScreenX(view, x);
        samples[i].row = WorldToScreenY(view, y);
    }
    entry.samples = std::move(samples);
    DrawJoined(entry.samples, joined, viewport, pen, list);
}

}  // namespace kalvex
