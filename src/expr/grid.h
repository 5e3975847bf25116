// The inside of a prepared grid, shared by its evaluation and its bounds.
#pragma once

#include <cstdint>
#include <vector>

#include "expr/grid_evaluator.h"
#include "expr/program.h"

namespace kalvex {

struct Grid {
    std::shared_ptr<const Program> program;
    std::size_t columnCount = 0;
    std::size_t rowCount = 0;
    std::vector<std::vector<double>> columns;  ///< array 0: x; then the x-only parts
    std::vector<std::uint8_t> columnFailed;    ///< by abscissa: an x-only part failed there
    bool anyColumnFailed = false;
    std::vector<std::vector<double>> rows;  ///< scalar 0: y; then the y-only parts
    std::vector<std::uint8_t> rowFailed;
    InstructionList body;  ///< over the columns as arrays and one row as scalars
    std::vector<std::vector<Bounds>> columnBounds;  ///< by array and tile
    std::vector<double> scalars;                    ///< of the row in work
    std::vector<const double*> arrays;              ///< of the columns in work
    std::vector<std::int32_t> errors;               ///< zeros between two rows
};

}  // namespace kalvex
