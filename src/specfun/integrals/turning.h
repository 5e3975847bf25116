// What the integrals that swing share.
#pragma once

#include <cmath>

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// 1/x, for neither x nor 1/x next to the ends of the range.
inline DoubleDouble Inverse(DoubleDouble x) {
    const double quotient = 1 / x.high;
    return {quotient, (std::fma(-quotient, x.high, 1) - quotient * x.low) * quotient};
}

/// The sine of an angle, or the cosine, from its rounded value and the rounded other one: where it
/// is the larger of the two, 1 - other^2/(1 + |value|), whose error falls with the other's square.
/// There the functions turn, and no condition number hides what the value's rounding does.
inline DoubleDouble LargerOfTwo(double value, double other) {
    if (std::fabs(value) < std::fabs(other)) return {value, 0};
    const double missing = other * other / (1 + std::fabs(value));
    const DoubleDouble larger = QuickTwoSum(1, -missing);
    return value < 0 ? -larger : larger;
}

}  // namespace kalvex::specfun
