// The pieces that the Gauss hypergeometric function is put together from, at twice the precision.
// Internal to the special functions.
#pragma once

#include <cmath>

#include "numbers/double_double.h"

namespace kalvex::specfun {

struct HypergeometricParameters {
    DoubleDouble a;
    DoubleDouble b;
    DoubleDouble c;
};

/// a + k, normalised in case the high parts cancel.
[[nodiscard]] inline DoubleDouble PlusInteger(DoubleDouble a, double k) {
    const DoubleDouble sum = TwoSum(a.high, k);
    return QuickTwoSum(sum.high, sum.low + a.low);
}

/// 0, -1, -2, ...
[[nodiscard]] inline bool IsNegativeInteger(DoubleDouble a) {
    return a.high <= 0 && a.low == 0 && std::floor(a.high) == a.high;
}

/// The product without normalising: the error is that of Multiply as long as the low parts stay
/// some units in the last place of the high ones.
[[nodiscard]] inline DoubleDouble LooseProduct(DoubleDouble a, DoubleDouble b) {
    const double product = a.high * b.high;
    return {product, std::fma(a.high, b.high, -product) + (a.high * b.low + a.low * b.high)};
}

/// sum += high + low.
inline void Accumulate(DoubleDouble& sum, double high, double low) {
    const DoubleDouble next = TwoSum(sum.high, high);
    sum = {next.high, sum.low + (next.low + low)};
}

/// A solution of the hypergeometric equation at a point z.
struct HypergeometricPoint {
    DoubleDouble value;
    DoubleDouble slope;     // z times the derivative
    double error = 0;       // estimate of the absolute error
    bool failed = false;    // overflow, too many terms or a division by zero
    bool singular = false;  // c met 0 before the series came to its end
    int exponent = 0;       // of two: value, slope and error are to be multiplied by
    double slopeError = 0;  // the same of the slope
};

/// The power series in z. Stops when the rest is below `tolerance` times the value and slope.
[[nodiscard]] HypergeometricPoint SumHypergeometric(const HypergeometricParameters& p,
                                                    DoubleDouble z, double tolerance);

/// How many digits, as a natural logarithm, the power series in z loses: measured in plain
/// arithmetic, hence up to some 30; infinite if a term overflows or thousands are needed.
[[nodiscard]] double MeasuredLoss(const HypergeometricParameters& p, double z);

/// The function at z, 0 < z < 1, w = 1 - z, by steps of 1 in the parameters. Best for c-a-b at
/// least 0.
[[nodiscard]] HypergeometricPoint HypergeometricByShifts(const HypergeometricParameters& p,
                                                         DoubleDouble z, DoubleDouble w);

/// The same for a = 0, -1, -2, ..., from the polynomial of degree 0 or 2.
[[nodiscard]] HypergeometricPoint PolynomialByShifts(const HypergeometricParameters& p,
                                                     DoubleDouble z, DoubleDouble w);

/// How many such steps that takes.
[[nodiscard]] double ShiftsTo(const HypergeometricParameters& p);

}  // namespace kalvex::specfun
