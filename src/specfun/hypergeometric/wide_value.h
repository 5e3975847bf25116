// The Gauss hypergeometric function with as many digits as it takes. Internal to the special
// functions.
#pragma once

#include "specfun/hypergeometric/value.h"

namespace kalvex::specfun {

/// For where the quick methods lose too many digits. The error is bounded by proof. It takes 20 to
/// 100 us, next to x = 1 up to 1000. Parameters are 0 or at least 2^-140 in magnitude; where c is
/// 0, -1, -2, ... the series must end by its parameter a. The loss is infinite where more than 2000
/// bits or some thousand terms would be needed.
[[nodiscard]] Value WideValue(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
