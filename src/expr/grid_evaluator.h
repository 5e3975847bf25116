// An expression of x and y over the points of a grid: every abscissa with every ordinate. What
// depends on x alone is computed once per abscissa, what depends on y alone once per ordinate.
// Interval arithmetic gives bounds of all values of a rectangle without computing the values.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "expr/evaluator.h"
#include "expr/function_bounds.h"

namespace kalvex {

struct Grid;

/// Prepares the grid of these abscissas and ordinates (copied). `interruption`, which must outlive
/// the grid, may stop the preparation and the evaluation of rows; all values are of no use then.
[[nodiscard]] std::shared_ptr<Grid> PrepareGrid(const CompiledExpression& expression,
                                                std::span<const double> xs,
                                                std::span<const double> ys,
                                                Interruption* interruption = nullptr);

/// Values G(x, y) of `count` neighbouring abscissas from `firstColumn` on at one ordinate, both by
/// index; 1e30 where a primitive failed. The values have the bits that EvaluateExpression gives,
/// except that a zero may have the other sign. `values` must have room for `count` rounded up to a
/// multiple of 8.
void EvaluateGridRow(Grid& grid, std::size_t row, std::size_t firstColumn, std::size_t count,
                     double* values);

/// Abscissas of one tile. A tile's bounds also hold at the first abscissa of the next tile.
inline constexpr std::size_t kTileColumns = 64;

/// Bounds of the values at `rowCount` ordinates from `firstRow` on, for each tile of abscissas in
/// order. A tile has no bounds where a primitive may fail, where a value may be not-a-number, and
/// where the expression calls a function without an interval form (function_bounds.h).
[[nodiscard]] std::vector<MaybeBounds> GridTileBounds(const Grid& grid, std::size_t firstRow,
                                                      std::size_t rowCount);

/// Whether a[i] * b[i] <= 0 for some i below `count`: a sign change between two rows of values.
[[nodiscard]] bool HasSignChange(const double* a, const double* b, std::size_t count);

}  // namespace kalvex
