// The Gauss hypergeometric function for large parameters that Euler's integral does not serve, by
// an integral along a loop. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// The function at z, 0 < z < 1, w = 1 - z, for b above 0 and above c, with a bound of the error of
/// the value. The slope is good to a few digits only. Failed where the saddle points of
/// the integrand are too close to each other or to its singularities: best for large parameters.
[[nodiscard]] HypergeometricPoint ByLoopIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                                 DoubleDouble w);

}  // namespace kalvex::specfun
