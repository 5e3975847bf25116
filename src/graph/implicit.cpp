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
    constexpr std::size_t kSpare = 8;  // rows of a little more room are evaluated without a copy
    rows.edge.resize(width + 1 + kSpare);
    rows.above.resize(width + kSpare);
    rows.below.resize(width + kSpare);
    return rows;
}

/// Columns looked at together; most stretches of a picture hold no pixel of the curve.
constexpr std::size_t kStretch = 64;

bool HasPixel(const Rows& rows, std::size_t first, std::size_t count) {
    const double* const edge = rows.edge.data() + first;
    return HasSignChange(edge + 1, edge, count) ||
           HasSignChange(rows.above.data() + first, rows.below.data() + first, count);
}

void AppendPixel(std::vector<PixelRun>& runs, std::int32_t row, std::int32_t column) {
    const bool joins = !runs.empty() && runs.back().row == row &&
                       runs.back().column + runs.back().length == column;
    if (joins) {
        ++runs.back().length;
    } else {
        runs.push_back({row, column, 1});
    }
}

void AppendRow(const Rows& rows, std::size_t width, std::int32_t row, std::vector<PixelRun>& runs) {
    if (!HasPixel(rows, 0, width)) return;
    for (std::size_t first = 0; first < width; first += kStretch) {
        const std::size_t end = std::min(first + kStretch, width);
        if (!HasPixel(rows, first, end - first)) continue;
        for (std::size_t i = first; i < end; ++i) {
            if (rows.edge[i + 1] * rows.edge[i] <= 0.0 || rows.above[i] * rows.below[i] <= 0.0) {
                AppendPixel(runs, row, static_cast<std::int32_t>(i));
            }
        }
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
        AppendRow(rows, static_cast<std::size_t>(width), row, record.runs);
        rows.above.swap(rows.below);
        const ProgressStretch stretch = StretchOfRow(row, width, height, color);
        if (stretch.lastColumn < stretch.firstColumn || !progress) continue;
        if (!progress(stretch)) break;
    }
    return record;
}

}  // namespace kalvex
