// The Gauss hypergeometric function by its quick methods, in numbers of two doubles, with a bound
// of the error. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"
#include "specfun/hypergeometric/value.h"

namespace kalvex::specfun {

/// The unit of which all parameters must be multiples so that adding integers to them along a walk
/// rounds nothing.
[[nodiscard]] double ParameterUnit(const HypergeometricParameters& p);

/// Tries the methods from the quickest up until one is good enough, and returns the best value
/// found. x is not 0. Where c is 0, -1, -2, ... the series must end by its parameter a.
[[nodiscard]] Value BestValue(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
