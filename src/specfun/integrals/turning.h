// What the integrals with oscillating terms share.
#pragma once

#include <cmath>

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// 1/x as a double-double. Neither x nor 1/x is next to the ends of the range.
[[nodiscard]] inline DoubleDouble Inverse(DoubleDouble x) {
    const double quotient = 1 / x.high;
    return {quotient, (std::fma(-quotient, x.high, 1) - quotient * x.low) * quotient};
}

/// The sine or the cosine of an angle, as a double-double, from its rounded value and the rounded
/// value of the other one. The larger of the two is 1 - other^2/(1 + |value|), whose error is small
/// because other^2 is. This matters where the larger one is near 1, which is where the integrals
/// have their extrema: there the condition number is 0, and the rounding of the value would be the
/// whole error.
[[nodiscard]] inline DoubleDouble LargerOfTwo(double value, double other) {
    if (std::fabs(value) < std::fabs(other)) return {value, 0};
    const double missing = other * other / (1 + std::fabs(value));
    const DoubleDouble larger = QuickTwoSum(1, -missing);
    return value < 0 ? -larger : larger;
}

}  // namespace kalvex::specfun
