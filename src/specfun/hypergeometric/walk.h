// Walks along the contiguous relations of the Gauss hypergeometric function. Internal to the
// special functions.
#pragma once

#include "specfun/hypergeometric/route.h"
#include "specfun/hypergeometric/running_error.h"
#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

/// The longest walk that is taken, chosen: in blocks, at 10 ns a step, it costs 0.4 ms, which is
/// what a value may cost.
inline constexpr double kMostShifts = 40000;

/// A solution at parameters on its way, with what is known of its error; value and slope are to be
/// multiplied by 2^exponent.
struct Traveller {
    WalkerOf<DoubleDouble, 1> at;
    int exponent = 0;
    bool takesBlocks = true;  // where the way is long
    RunningError error;
};

/// At p, with the value and slope given and their errors.
[[nodiscard]] Traveller StartOf(const HypergeometricParameters& p,
                                const HypergeometricPoint& point);

/// Walks along the straight line to other parameters. False when that takes more than kMostShifts
/// steps, or when the error of the direction has become as large as the solution.
[[nodiscard]] bool WalkTo(const HypergeometricParameters& to, const Place& place, Traveller& t);

/// Value and slope at the end of a walk, with the bound of the error of the value.
[[nodiscard]] HypergeometricPoint PointOf(const Traveller& t);

}  // namespace kalvex::specfun
