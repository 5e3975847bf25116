// What is known beforehand of the solutions beside the Gauss hypergeometric function for large
// parameters. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// By how many e-foldings other solutions outgrow the function along the way to p, at z, w = 1-z.
/// For c below 1 only a polynomial of few terms, which has no part of z^(1-c), is outgrown so.
[[nodiscard]] double Outgrown(const HypergeometricParameters& p, double z, double w);

/// z F'/F where the function is outgrown, the better the larger the parameters.
[[nodiscard]] double SlopeOfLesser(const HypergeometricParameters& p, double z, double w);

/// Whether the value is certain to be beyond the range: far so, x being next to 1. False where that
/// is not seen at once.
[[nodiscard]] bool Overflows(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
