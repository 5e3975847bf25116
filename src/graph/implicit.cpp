// The sign is tested at the middles of the four edges of each pixel. Neighbouring pixels share an
// edge, so a picture of W by H pixels needs two grids of values: the vertical edges, W + 1 by H,
// and the horizontal edges, W by H + 1.
//
// The picture is computed in bands of rows, and each band in tiles of columns. When bounds of all
// values in a tile prove that the sign does not change there, the tile has no pixel of the curve
// and is not evaluated. In the other tiles, whole stretches of columns are tested before single
// pixels. The result is the same as with a test of every pixel.
#include "graph/implicit.h"

#include <algorithm>
#include <cmath>

#include "expr/grid_evaluator.h"

namespace kalvex {
namespace {

constexpr std::size_t kBandRows = 32;

/// A range of neighbouring columns that must be evaluated.
struct Span {
    std::size_t first = 0;
    std::size_t count = 0;
};

/// The grids of values of one picture, for the rows that are being computed.
struct Rows {
    std::size_t width = 0;
    std::shared_ptr<Grid> edges;    ///< Xmin - hx/2, then x_i + hx/2; at y_j
    std::shared_ptr<Grid> middles;  ///< x_i; at Ymax + hy/2, then y_j - hy/2
    std::vector<double> edge;
    std::vector<double> above;
    std::vector<double> below;
    Interruption* interruption = nullptr;
    ContourTrace* contours = nullptr;  ///< null: not wanted
};

Rows MakeRows(const CompiledExpression& expression, const Viewport& viewport,
              Interruption* interruption) {
    const ViewWindow& view = viewport.view;
    const auto width = static_cast<std::size_t>(viewport.ClientWidth);
    const auto height = static_cast<std::size_t>(viewport.ClientHeight);
    const double hx = PixelStep(view.Xmin, view.Xmax, viewport.ClientWidth);
    const double hy = PixelStep(view.Ymin, view.Ymax, viewport.ClientHeight);
    std::vector<double> edgeX(width + 1, view.Xmin - hx / 2.0);
    std::vector<double> middleX(width);
    for (std::size_t i = 0; i < width; ++i) {
        middleX[i] = view.Xmin + static_cast<double>(i) * hx;
        edgeX[i + 1] = middleX[i] + hx / 2.0;
    }
    std::vector<double> rowY(height);
    std::vector<double> betweenY(height + 1, view.Ymax + hy / 2.0);
    for (std::size_t j = 0; j < height; ++j) {
        rowY[j] = view.Ymax - static_cast<double>(j) * hy;
        betweenY[j + 1] = rowY[j] - hy / 2.0;
    }
    constexpr std::size_t kSpare = 16;  // rows are evaluated a little beyond their end
    Rows rows;
    rows.width = width;
    rows.interruption = interruption;
    rows.edges = PrepareGrid(expression, edgeX, rowY, interruption);
    rows.middles = PrepareGrid(expression, middleX, betweenY, interruption);
    rows.edge.resize(width + kSpare);
    rows.above.resize(width + kSpare);
    rows.below.resize(width + kSpare);
    return rows;
}

/// Whether the product of any two of these values is positive. Values below 1e-150 are excluded,
/// because a product of two of them could underflow to 0.
bool HasOneSign(const std::optional<Bounds>& bounds) {
    constexpr double kNoUnderflow = 1e-150;
    return bounds && (bounds->low > kNoUnderflow || bounds->high < -kNoUnderflow);
}

std::vector<Span> SpansToEvaluate(const Rows& rows, std::size_t firstRow, std::size_t count) {
    const auto edges = GridTileBounds(*rows.edges, firstRow, count);
    const auto middles = GridTileBounds(*rows.middles, firstRow, count + 1);
    std::vector<Span> spans;
    for (std::size_t first = 0; first < rows.width; first += kTileColumns) {
        const std::size_t tile = first / kTileColumns;
        if (HasOneSign(edges[tile]) && HasOneSign(middles[tile])) continue;
        const std::size_t columns = std::min(kTileColumns, rows.width - first);
        if (!spans.empty() && spans.back().first + spans.back().count == first) {
            spans.back().count += columns;
        } else {
            spans.push_back({first, columns});
        }
    }
    return spans;
}

/// The number of columns that are tested together. Most such stretches have no pixel of the curve.
constexpr std::size_t kStretch = 64;

bool HasPixel(const Rows& rows, const Span& span) {
    const double* const edge = rows.edge.data() + span.first;
    return HasSignChange(edge + 1, edge, span.count) ||
           HasSignChange(rows.above.data() + span.first, rows.below.data() + span.first,
                         span.count);
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

void AppendSpan(const Rows& rows, const Span& span, std::int32_t row, std::vector<PixelRun>& runs) {
    if (!HasPixel(rows, span)) return;
    const std::size_t end = span.first + span.count;
    for (std::size_t first = span.first; first < end; first += kStretch) {
        const Span stretch{first, std::min(kStretch, end - first)};
        if (!HasPixel(rows, stretch)) continue;
        for (std::size_t i = first; i < first + stretch.count; ++i) {
            // KEEP: a product of exactly 0 is a crossing, and an undefined value counts as 1e30.
            if (rows.edge[i + 1] * rows.edge[i] <= 0.0 || rows.above[i] * rows.below[i] <= 0.0) {
                const auto column = static_cast<std::int32_t>(i);
                AppendPixel(runs, row, column);
                if (rows.contours == nullptr) continue;
                AddPixel(*rows.contours, column,
                         {rows.edge[i], rows.above[i], rows.edge[i + 1], rows.below[i]});
            }
        }
    }
}

void AppendRow(Rows& rows, const std::vector<Span>& spans, std::size_t row,
               std::vector<PixelRun>& runs) {
    for (const Span& span : spans) {
        EvaluateGridRow(*rows.edges, row, span.first, span.count + 1,
                        rows.edge.data() + span.first);
        EvaluateGridRow(*rows.middles, row + 1, span.first, span.count,
                        rows.below.data() + span.first);
        if (IsStopped(rows.interruption)) return;
        AppendSpan(rows, span, static_cast<std::int32_t>(row), runs);
    }
    if (rows.contours != nullptr) EndContourRow(*rows.contours);
    rows.above.swap(rows.below);
}

/// Reports a row's stretch of the progress bar; false stops the picture.
bool Report(const ProgressStretch& stretch, const DrawProgress& progress) {
    if (!progress || stretch.lastColumn < stretch.firstColumn) return true;
    return progress(stretch);
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
                               const Rgb& color, const DrawProgress& progress,
                               Interruption* interruption, bool withContours) {
    PixelRunsRecord record{color, {}};
    const std::int32_t width = viewport.ClientWidth;
    const std::int32_t height = viewport.ClientHeight;
    if (width <= 0 || height <= 0) return record;
    Rows rows = MakeRows(expression, viewport, interruption);
    ContourTrace contours = StartContours(width);
    if (withContours) rows.contours = &contours;
    const auto rowCount = static_cast<std::size_t>(height);
    for (std::size_t first = 0; first < rowCount; first += kBandRows) {
        if (IsStopped(interruption)) return record;
        const std::size_t end = std::min(first + kBandRows, rowCount);
        const std::vector<Span> spans = SpansToEvaluate(rows, first, end - first);
        for (const Span& span : spans) {
            EvaluateGridRow(*rows.middles, first, span.first, span.count,
                            rows.above.data() + span.first);
        }
        for (std::size_t row = first; row < end; ++row) {
            AppendRow(rows, spans, row, record.runs);
            if (IsStopped(interruption)) return record;
            const auto j = static_cast<std::int32_t>(row);
            if (!Report(StretchOfRow(j, width, height, color), progress)) return record;
        }
    }
    if (withContours)
        record.contours = FinishContours(std::move(contours), expression, viewport, interruption);
    return record;
}

}  // namespace kalvex
