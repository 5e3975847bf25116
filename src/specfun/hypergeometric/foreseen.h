// What a sum of many digits is going to be like, from a look in plain arithmetic. Internal to the
// special functions.
#pragma once

#include <cmath>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

inline constexpr double kWanted = 90;  // bits of a value

/// What a sum is going to be like: the greatest term and the sum, as logarithms to base 2. Of a sum
/// that cancels too much for plain arithmetic only a bound is known.
struct Foreseen {
    double largest = INFINITY;
    double sum = INFINITY;
    double terms = INFINITY;
    bool measured = false;
};

/// Of the power series in z.
[[nodiscard]] Foreseen ForeseenOf(const HypergeometricParameters& p, double z);

}  // namespace kalvex::specfun
