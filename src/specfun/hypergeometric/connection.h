// The Gauss hypergeometric function with large parameters, from one integral or from solutions that
// have integrals. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// The function at z, 0 < z < 1, w = 1 - z, by whichever integral serves it, or by a short series
/// of positive terms; with a bound of the error of the value. The slope is good to a few digits
/// only. Failed where a, b, c-a and c-b are all below 0, c then being so, too. c is not an
/// integer below 1.
[[nodiscard]] HypergeometricPoint ByOneIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                                DoubleDouble w);

/// The same for a polynomial, a = 0, -1, -2, ..., and c a negative integer not above a: from the
/// polynomial in w.
[[nodiscard]] HypergeometricPoint ByReflection(const HypergeometricParameters& p, DoubleDouble z,
                                               DoubleDouble w);

/// Whether both solutions of ByConnection have Euler's integral.
[[nodiscard]] bool ConnectsEulerIntegrals(const HypergeometricParameters& p);

/// The function at z, 0 < z < 1, w = 1 - z, with a bound of the error of the value, for c below 0,
/// not an integer, and c-a-b at most 0. The slope is good to a few digits only. Failed where
/// ByOneIntegral fails for one of the two solutions that it is made of.
[[nodiscard]] HypergeometricPoint ByConnection(const HypergeometricParameters& p, DoubleDouble z,
                                               DoubleDouble w);

}  // namespace kalvex::specfun
