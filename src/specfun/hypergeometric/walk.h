// Walks along the contiguous relations of the Gauss hypergeometric function. Internal to the
// special functions.
#pragma once

#include "specfun/hypergeometric/route.h"
#include "specfun/hypergeometric/running_error.h"
#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

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

/// By the straight line to other parameters, kMostShifts steps at most. False when nothing is left
/// of the value: rounding has outgrown it.
[[nodiscard]] bool WalkTo(const HypergeometricParameters& to, const Place& place, Traveller& t);

/// What the walk has come to.
[[nodiscard]] HypergeometricPoint PointOf(const Traveller& t);

}  // namespace kalvex::specfun
