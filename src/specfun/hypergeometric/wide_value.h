// The Gauss hypergeometric function with as many digits as it takes. Internal to the special
// functions.
#pragma once

#include "specfun/hypergeometric/best_value.h"

namespace kalvex::specfun {

/// For where the quicker methods lose too many digits: with proven bounds of the error, at a cost
/// of 20 to 100 us, rarely 2000. Parameters are exact, 0 or at least 2^-140 in magnitude; at a
/// pole in c the polynomial is the one that a ends. Nothing (an infinite loss) where more than 2000
/// bits or some thousand terms would be needed.
[[nodiscard]] Value WideValue(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
