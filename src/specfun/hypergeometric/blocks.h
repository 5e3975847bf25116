// Blocks of steps of the contiguous relations as linear maps of value and slope. Internal to the
// special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/route.h"
#include "specfun/hypergeometric/running_error.h"
#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

inline constexpr int kBlockSteps = 16;
inline constexpr int kMostBlocks = 64;

/// What becomes of the value and slope (1,0) and (0,1), and the trace of taking the block at once.
struct Block {
    std::array<Column<DoubleDouble>, 2> columns;
    TraceOf<double> trace;
};

using BlockTable = std::array<std::array<Block, kMostBlocks>, kLanes>;

/// The maps along the same route from four places, at most kMostBlocks * kBlockSteps steps; returns
/// their number.
[[nodiscard]] int MapBlocks(const std::array<HypergeometricParameters, kLanes>& from,
                            const Route& route, const Place& place, BlockTable& table);

}  // namespace kalvex::specfun
