// The sign is tested on a half-step staggered grid: a pixel's left and right edge middles lie on
// its own row, the upper and lower ones half a step above and below. The right middle of a pixel
// is the left one of the next, the lower the upper one of the next row, so a picture row needs
// 2 W + 1 values: one row of W + 1 edge middles and one of W lower middles. Both rows keep their
// abscissas through the picture, so what depends on x alone is computed once.
#include "graph/implicit.h"

#include <algorithm>

namespace kalvex {
namespace {

/// One picture's abscissas and rows in work.
struct Rows {
    std::shared_ptr<GridRows> edges;    ///< Xmin - hx/2, then x_i + hx/2
    std::shared_ptr<GridRows> middles;  ///< x_i
    std::vector<double> edge;
    std::vector<double> above;
    std::vector<double> below;
    std::vector<std::uint8_t> set;
};

/// A single column or row has no interval; its step is 0.
double StepOf(double low, double high, std::int32_t pixels) {
    return pixels > 1 ? (high - low) / (pixels - 1.0) : 0.0;
}

Rows MakeRows(const CompiledExpression& expression, const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    const auto width = static_cast<std::size_t>(viewport.ClientWidth);
    const double hx = StepOf(view.Xmin, view.Xmax, viewport.ClientWidth);
    std::vector<double> edges(width + 1);
    std::vector<double> middles(width);
    edges[0] = view.Xmin - hx / 2.0;
    for (std::size_t i = 0; i < width; ++i) {
        middles[i] = view.Xmin + static_cast<double>(i) * hx;
        edges[i + 1] = middles[i] + hx / 2.0;
    }
    Rows rows;
    rows.edges = PrepareGridRows(expression, edges);
    rows.middles = PrepareGridRows(expression, middles);
    rows.edge.resize(width + 1);
    rows.above.resize(width);
    rows.below.resize(width);
    rows.set.resize(width);
    return rows;
}

void MarkRow(Rows& rows) {
    const std::size_t width = rows.set.size();
    const double* edge = rows.edge.data();
    const double* above = rows.above.data();
    const double* below = rows.below.data();
    std::uint8_t* set = rows.set.data();
    for (std::size_t i = 0; i < width; ++i) {
        const bool across = edge[i + 1] * edge[i] <= 0.0;
        const bool down = above[i] * below[i] <= 0.0;
        set[i] = static_cast<std::uint8_t>(across | down);
    }
}

void AppendRuns(const std::vector<std::uint8_t>& set, std::int32_t row,
                std::vector<PixelRun>& runs) {
    auto at = std::find(set.begin(), set.end(), 1);
    while (at != set.end()) {
        const auto end = std::find(at, set.end(), 0);
        runs.push_back({row, static_cast<std::int32_t>(at - set.begin()),
                        static_cast<std::int32_t>(end - at)});
        at = std::find(end, set.end(), 1);
    }
}

}  // namespace

ProgressStretch StretchOfRow(std::int32_t row, std::int32_t width, std::int32_t height,
                             const Rgb& color) {
    const std::int64_t w = width;
    const std::int64_t h = height;
    return {static_cast<std::int32_t>(((row - 1) * w + h) / h),
            static_cast<std::int32_t>(row * w / h), color};
}

PixelRunsRecord ImplicitPixels(const CompiledExpression& expression, const Viewport& viewport,
                               const Rgb& color, const ImplicitProgress& progress) {
    PixelRunsRecord record{color, {}};
    const std::int32_t width = viewport.ClientWidth;
    const std::int32_t height = viewport.ClientHeight;
    if (width <= 0 || height <= 0) return record;
    const ViewWindow& view = viewport.view;
    const double hy = StepOf(view.Ymin, view.Ymax, height);
    Rows rows = MakeRows(expression, viewport);
    EvaluateGridRow(*rows.middles, view.Ymax + hy / 2.0, rows.above);
    for (std::int32_t row = 0; row < height; ++row) {
        const double y = view.Ymax - row * hy;
        EvaluateGridRow(*rows.edges, y, rows.edge);
        EvaluateGridRow(*rows.middles, y - hy / 2.0, rows.below);
        MarkRow(rows);
        AppendRuns(rows.set, row, record.runs);
        rows.above.swap(rows.below);
        const ProgressStretch stretch = StretchOfRow(row, width, height, color);
        if (stretch.lastColumn < stretch.firstColumn || !progress) continue;
        if (!progress(stretch)) break;
    }
    return record;
}

}  // namespace kalvex
