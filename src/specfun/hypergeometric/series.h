// The power series of the Gauss hypergeometric function in numbers of two doubles. Internal to the
// special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// The power series in z, with bounds of the errors of value and slope. It stops when the rest is
/// below `tolerance` times value and slope. Failed where a term overflows or 2000 are not enough.
[[nodiscard]] HypergeometricPoint SumHypergeometric(const HypergeometricParameters& p,
                                                    DoubleDouble z, double tolerance);

/// How many digits, as a natural logarithm, the power series in z loses by cancellation: measured
/// in plain arithmetic, hence up to some 30. Infinite if a term overflows or 3000 are not enough.
[[nodiscard]] double MeasuredLoss(const HypergeometricParameters& p, double z);

}  // namespace kalvex::specfun
