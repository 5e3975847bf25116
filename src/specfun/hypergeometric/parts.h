// The records that the methods of the Gauss hypergeometric function share, and small arithmetic of
// numbers of two doubles. Internal to the special functions.
#pragma once

#include <cmath>

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// A bound of the relative error after up to eight operations of two doubles, each of which is
/// below 2^-103 off.
inline constexpr double kPairError = 0x1p-100;

/// A bound of the relative error after up to eight roundings of 2^-53 in plain arithmetic: a step
/// of a series or of an adjoint recurrence.
inline constexpr double kPlainError = 0x1p-50;

/// 1/3 and 1/5, the nearest double and the nearest double to what is missing: coefficients of the
/// series of logarithm and arctangent, in which they count with more than 53 bits.
inline constexpr DoubleDouble kThird = {1.0 / 3, 1.850371707708594e-17};
inline constexpr DoubleDouble kFifth = {1.0 / 5, -1.1102230246251565e-17};

struct HypergeometricParameters {
    DoubleDouble a;
    DoubleDouble b;
    DoubleDouble c;
};

/// 0, -1, -2, ...
[[nodiscard]] inline bool IsNegativeInteger(DoubleDouble a) {
    return a.high <= 0 && a.low == 0 && std::floor(a.high) == a.high;
}

/// a b, not normalised: operator* without its last step, which saves three operations of the nine.
/// The error is at most 32 u^2, u = 2^-53, as long as the low parts of a and b are at most some
/// units in the last place of their high parts, so that results may be multiplied on.
[[nodiscard]] inline DoubleDouble LooseProduct(DoubleDouble a, DoubleDouble b) {
    const double product = a.high * b.high;
    return {product, std::fma(a.high, b.high, -product) + (a.high * b.low + a.low * b.high)};
}

/// sum += high + low, without normalising the result: LooseSum without its last step. The error is
/// below 2^-104 of the sum of the magnitudes.
inline void Accumulate(DoubleDouble& sum, double high, double low) {
    const DoubleDouble next = TwoSum(sum.high, high);
    sum = {next.high, sum.low + (next.low + low)};
}

/// A solution of the hypergeometric equation at a point z, with bounds of its errors.
struct HypergeometricPoint {
    DoubleDouble value;
    DoubleDouble slope;     // z times the derivative
    double error = 0;       // bound of the absolute error of the value
    bool failed = false;    // overflow, too many terms or a division by zero
    bool singular = false;  // c met 0 before the series came to its end
    int exponent = 0;       // of two: value, slope and error are to be multiplied by
    double slopeError = 0;  // the same of the slope
};

}  // namespace kalvex::specfun
