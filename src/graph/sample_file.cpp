// The points are circles under the curve; the method of the line gives one value per pixel column.
// A million points may lie on the same few pixels, so a circle is drawn only when it touches the
// picture and no other circle has the same centre.
#include <algorithm>
#include <cmath>

#include "expr/eval_error.h"
#include "graph/curves.h"
#include "interp/approximation.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr std::int32_t kRadius = 3;

/// The pixels that are already the centre of a circle, on the picture and a radius around it.
struct TakenCentres {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::vector<bool> taken;
};

TakenCentres NoCentres(const Viewport& viewport) {
    TakenCentres centres{std::max(viewport.ClientWidth, 0) + 2 * std::int64_t{kRadius} + 1,
                         std::max(viewport.ClientHeight, 0) + 2 * std::int64_t{kRadius} + 1,
                         {}};
    centres.taken.resize(static_cast<std::size_t>(centres.width * centres.height));
    return centres;
}

/// True the first time for a centre whose circle touches the picture, false in all other cases.
bool TakeCentre(TakenCentres& centres, std::int32_t column, std::int32_t row) {
    const std::int64_t x = std::int64_t{column} + kRadius;
    const std::int64_t y = std::int64_t{row} + kRadius;
    if (x < 0 || y < 0 || x >= centres.width || y >= centres.height) return false;
    const auto index = static_cast<std::size_t>(y * centres.width + x);
    if (centres.taken[index]) return false;
    centres.taken[index] = true;
    return true;
}

/// Fills the pixels of the points and draws a circle about each one that shows. When the work is
/// stopped, the remaining points have the pixel (0, 0) and no circle.
void PlotPoints(FunctionEntry& entry, const Viewport& viewport, const Rgb& color,
                Interruption* interruption, DrawList& list) {
    const ViewWindow& view = viewport.view;
    const PointTable& points = entry.points;
    entry.pointPixels.assign(CountOf(points), {});
    if (entry.pointPixels.empty()) return;
    TakenCentres centres = NoCentres(viewport);
    for (std::size_t i = 0; i < CountOf(points); ++i) {
        if (IsStopped(interruption)) return;
        const double x = (points.x[i] - view.Xmin) * viewport.ClientWidth / (view.Xmax - view.Xmin);
        const double y =
            (view.Ymax - points.y[i]) * viewport.ClientHeight / (view.Ymax - view.Ymin);
        const std::int32_t column = TruncateToInt32(x);
        const std::int32_t row = TruncateToInt32(y);
        entry.pointPixels[i] = {column, row};
        if (std::isnan(x) || std::isnan(y) || !TakeCentre(centres, column, row)) continue;
        list.records.emplace_back(CircleRecord{Pen{color, 1}, {x, y}, kRadius});
    }
}

/// One abscissa per column; the first and the last are the bounds themselves.
std::vector<double> Abscissas(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    std::vector<double> xs(static_cast<std::size_t>(std::max(viewport.ClientWidth, 0)));
    const double width = view.Xmax - view.Xmin;
    for (std::size_t i = 0; i < xs.size(); ++i)
        xs[i] = view.Xmin + static_cast<double>(i) * width / (static_cast<double>(xs.size()) - 1.0);
    if (!xs.empty()) xs.back() = view.Xmax;
    if (!xs.empty()) xs.front() = view.Xmin;
    return xs;
}

// KEEP: the value itself is tested, not its pixel; curves beyond 2^31 units are not drawn however
// large the window is.
bool IsDrawable(double value) {
    return value != UndefinedValue && std::fabs(value) < 2147483648.0;
}

SampleCache SamplesOf(std::span<const double> xs, std::span<const double> values,
                      const ViewWindow& view) {
    SampleCache samples(xs.size());
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const bool defined = std::isfinite(values[i]) && values[i] != UndefinedValue;
        samples[i] = {0, 0, xs[i], values[i], 0.0, defined ? 0 : kNoValueStatus};
        if (!IsDrawable(values[i]) || (i + 1 < xs.size() && !IsDrawable(values[i + 1]))) continue;
        samples[i].column = WorldToScreenX(view, xs[i]);
        samples[i].row = WorldToScreenY(view, values[i]);
    }
    return samples;
}

/// A progress function that also stops the work when it is interrupted.
WorkProgress Interrupted(const WorkProgress& progress, Interruption* interruption) {
    if (interruption == nullptr) return progress;
    return [&progress, interruption](double done) {
        return !IsStopped(interruption) && (!progress || progress(done));
    };
}

/// The set-up is the first half of the work, the evaluation the second.
WorkProgress Half(const WorkProgress& progress, double start) {
    if (!progress) return {};
    return [&progress, start](double done) { return progress(start + done / 2.0); };
}

}  // namespace

Failure plotFileFunction(FunctionEntry& entry, const Viewport& viewport, const Pen& pen,
                         const WorkProgress& given, DrawList& list, Interruption* interruption) {
    PlotPoints(entry, viewport, pen.color, interruption, list);
    const WorkProgress progress = Interrupted(given, interruption);
    const std::vector<double> xs = Abscissas(viewport);
    std::vector<double> values(xs.size());
    Approximation approximation =
        SetUpApproximation(entry.points.x, entry.points.y, entry.method, Half(progress, 0.0));
    EvaluateApproximation(approximation, xs, values, Half(progress, 0.5));
    entry.samples = SamplesOf(xs, values, viewport.view);
    DrawRuns(entry.samples, viewport, pen, list);
    return approximation.failure;
}

}  // namespace kalvex
