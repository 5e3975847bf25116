// Blocks of steps of the contiguous relations as linear maps of value and slope. Internal to the
// special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric_route.h"
#include "specfun/hypergeometric_shift_steps.h"

namespace kalvex::specfun {

inline constexpr int kBlockSteps = 32;
inline constexpr int kMostBlocks = 32;

/// The value and slope that become of (1,0) and of (0,1), and estimates of their errors.
struct Block {
    struct Column {
        DoubleDouble value;
        DoubleDouble slope;
        double valueError = 0;
        double slopeError = 0;
    };
    std::array<Column, 2> columns;
};

using BlockTable = std::array<std::array<Block, kMostBlocks>, kLanes>;

/// The maps along the same route from four places, at most kMostBlocks * kBlockSteps steps; returns
/// their number.
int MapBlocks(const std::array<HypergeometricParameters, kLanes>& from, const Route& route,
              const Place& place, BlockTable& table);

}  // namespace kalvex::specfun
