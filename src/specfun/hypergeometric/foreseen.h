// An estimate in plain arithmetic of how long a power series is and how much of it cancels, from
// which the precision of a sum of many digits is chosen. Internal to the special functions.
#pragma once

#include <cmath>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// Bits of a value to sum for: the 70 that must be right (kEnough in wide_value.cpp), and 20 more,
/// chosen for sums of values that cancel by as much.
inline constexpr double kWanted = 90;

/// The greatest term and the sum, as logarithms to base 2, and the number of terms. `measured` is
/// false where so much cancels that plain arithmetic does not see the sum; `sum` is then a bound.
struct Foreseen {
    double largest = INFINITY;
    double sum = INFINITY;
    double terms = INFINITY;
    bool measured = false;
};

/// The estimate for the power series in z; all infinite where it takes more than 6000 terms.
[[nodiscard]] Foreseen ForeseenOf(const HypergeometricParameters& p, double z);

}  // namespace kalvex::specfun
