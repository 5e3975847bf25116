// Blocks of steps of the contiguous relations as linear maps of value and slope. Internal to the
// special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/route.h"
#include "specfun/hypergeometric/running_error.h"
#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

/// Chosen: longer blocks cost less for each step, but with 32 the bound of their errors fails more
/// often (blocks.cpp has the condition).
inline constexpr int kBlockSteps = 16;

/// Chosen: the table of blocks then takes 34 KiB of the stack, with 136 bytes for each block of
/// each of four lanes. Longer ways are cut into legs.
inline constexpr int kMostBlocks = 64;

/// The steps of a block multiplied out: what they make of (value, slope) = (1,0) and of (0,1), and
/// the trace of taking all of them at once.
struct Block {
    std::array<Column<DoubleDouble>, 2> columns;
    TraceOf<double> trace;
};

using BlockTable = std::array<std::array<Block, kMostBlocks>, kLanes>;

/// Multiplies out the blocks along the same route from four places, one in each lane. The route has
/// at most kMostBlocks * kBlockSteps steps. Returns the number of blocks.
[[nodiscard]] int MapBlocks(const std::array<HypergeometricParameters, kLanes>& from,
                            const Route& route, const Place& place, BlockTable& table);

}  // namespace kalvex::specfun
