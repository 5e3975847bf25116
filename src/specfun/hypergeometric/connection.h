// The Gauss hypergeometric function with large parameters, c below 0, from two solutions with
// positive terms. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// The function at z, 0 < z < 1, w = 1 - z, for c above 0, by whichever integral serves it, or by a
/// short series of positive terms; with a bound of the error of the value. The slope is good to a
/// few digits only.
[[nodiscard]] HypergeometricPoint ByOneIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                                DoubleDouble w);

/// The function at z, 0 < z < 1, w = 1 - z, with a bound of the error of the value, for c below 0,
/// not an integer, and c-a-b at most 0. The slope is good to a few digits only. Failed where the
/// solutions that it is made of are not of one sign, or cannot be had.
[[nodiscard]] HypergeometricPoint ByConnection(const HypergeometricParameters& p, DoubleDouble z,
                                               DoubleDouble w);

}  // namespace kalvex::specfun
