// The inside of a prepared grid, shared by its evaluation and its bounds.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "expr/function_bounds.h"
#include "expr/program.h"

namespace kalvex {

/// A program cut for a grid: what depends on one variable alone is computed once for each of its
/// values, and only the rest once for each point.
struct GridPlan {
    std::vector<InstructionList> columns;  ///< of x alone; results are arrays 1, 2, ... of the body
    std::vector<InstructionList> rows;  ///< of y alone, as array 0; scalars 1, 2, ... of the body
    InstructionList body;               ///< over the columns as arrays and one row as scalars
};

/// Cuts a program's tree. `xIsFinite` says that no abscissa of the grid is infinite or
/// not-a-number: then the leading "x*0+" of a text of two variables is left out.
[[nodiscard]] GridPlan PlanGrid(const SyntaxTree& tree, bool xIsFinite);

struct Grid {
    std::shared_ptr<const Program> program;
    std::size_t columnCount = 0;
    std::size_t rowCount = 0;
    std::vector<std::vector<double>> columns;  ///< array 0: x; then the x-only parts
    std::vector<std::uint8_t> columnFailed;    ///< by abscissa: whether a part of x failed there
    bool anyColumnFailed = false;
    std::vector<std::vector<double>> rows;  ///< scalar 0: y; then the y-only parts
    std::vector<std::uint8_t> rowFailed;
    InstructionList body;  ///< over the columns as arrays and one row as scalars
    std::vector<std::vector<Bounds>> columnBounds;  ///< by array and tile
    std::vector<double> scalars;                    ///< of the row in work
    std::vector<const double*> arrays;              ///< of the columns in work
    std::vector<std::int32_t> errors;               ///< zeros between two rows
    Interruption* interruption = nullptr;
};

}  // namespace kalvex
