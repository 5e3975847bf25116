// The Gauss hypergeometric function for large parameters by Euler's integral. Internal to the
// special functions.
#pragma once

#include <cmath>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// Whether Euler's integral over a or over b converges: one of them is between 0 and c.
[[nodiscard]] bool HasEulerIntegral(const HypergeometricParameters& p);

/// The function at z, -1 < z < 1, w = 1 - z, where HasEulerIntegral, with a bound of the error of
/// the value. The slope is good to a few digits only. Failed where more than some 200 nodes would
/// be needed, as for parameters below some ten. Singular as well where the logarithm of the value
/// is certain to be above `most`, less some ten.
[[nodiscard]] HypergeometricPoint ByEulerIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                                  DoubleDouble w, double most = INFINITY);

}  // namespace kalvex::specfun
