// The Gauss hypergeometric function by the contiguous relations, from parameters next to 0 to those
// wanted. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// The function at z, 0 < z < 1, w = 1 - z, by steps of 1 in the parameters, with a bound of the
/// error of the value. Parameters must be multiples of ParameterUnit. Best for c-a-b at least 0.
[[nodiscard]] HypergeometricPoint HypergeometricByShifts(const HypergeometricParameters& p,
                                                         DoubleDouble z, DoubleDouble w);

/// The same for a = 0, -1, -2, ..., from the polynomial of degree 0 or 2.
[[nodiscard]] HypergeometricPoint PolynomialByShifts(const HypergeometricParameters& p,
                                                     DoubleDouble z, DoubleDouble w);

/// How many such steps that takes.
[[nodiscard]] double ShiftsTo(const HypergeometricParameters& p);

}  // namespace kalvex::specfun
