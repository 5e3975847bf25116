// What the Bessel functions share. They are computed with some 64 bits of precision as
// double-doubles, for which the loose sums and quotients are accurate enough. Recurrences do not
// normalise the numbers: the low part grows to the sum of the rounding errors of the high part, and
// a step takes half the time. Where a value could leave the range of doubles, a power of two is
// kept beside it.
#pragma once

#include "numbers/extended.h"

namespace kalvex::specfun {

/// order = whole + part with part in -1/2..1/2. Exact, except that parts next to 0 become 0. For
/// orders from 0 to 2^30.
struct SplitOrder {
    int whole;
    double part;
};
[[nodiscard]] SplitOrder Split(double order);

/// 2/x = scale 2^exponent for x > 0, where exponent is at least 0: scale is below 1 for small x,
/// and exponent is 0 for large ones.
struct Step {
    DoubleDouble scale;
    int exponent;
    double back;  ///< 2^(-2 exponent)
};
[[nodiscard]] Step StepOf(double x);

/// A function at two neighbouring orders. `next` has one more factor 2^exponent of a Step than
/// `at`.
struct OrderPair {
    DoubleDouble at;
    DoubleDouble next;
};

/// scale (k + part), for whole k.
[[nodiscard]] inline DoubleDouble FactorAt(DoubleDouble scale, double k, double part) {
    const DoubleDouble order = TwoSum(k, part);
    const double product = scale.high * order.high;
    return {product, std::fma(scale.high, order.high, -product) +
                         (scale.high * order.low + scale.low * order.high)};
}

/// factor f - before: one step of a recurrence.
[[nodiscard]] inline DoubleDouble RecurrenceStep(DoubleDouble factor, DoubleDouble f,
                                                 DoubleDouble before) {
    const DoubleDouble product = TwoProduct(factor.high, f.high);
    const DoubleDouble sum = TwoSum(product.high, -before.high);
    const double error = factor.low * f.high + product.low - before.low + sum.low;
    return {sum.high, error + factor.high * f.low};
}

/// The pair order.whole steps higher, by f(k+1) = 2k/x f(k) - sign f(k-1).
[[nodiscard]] OrderPair Upward(OrderPair pair, SplitOrder order, const Step& step, double sign);

/// 1/Gamma(1 + part) = even + part odd and 1/Gamma(1 - part) = even - part odd, |part| <= 1/2.
struct ReciprocalGamma {
    DoubleDouble even;
    DoubleDouble odd;
};
[[nodiscard]] ReciprocalGamma ReciprocalGammaParts(double part);

/// (x/2)^order / Gamma(order + 1), the leading factor of the power series of J and I, for orders
/// from 0 to 1000.
[[nodiscard]] Scaled LeadingFactor(double order, double x);

/// The sum over k of q^k / (k! (order+1)...(order+k)), the other factor of the power series: of I
/// for q = x^2/4, of J for q = -x^2/4. For J x^2/4 must be at most order + 1, so that nothing
/// cancels.
[[nodiscard]] DoubleDouble PowerSeries(double order, DoubleDouble q);

/// f(order+1)/f(order) for the minimal solution of f(k+1) = 2k/x f(k) - sign f(k-1), which vanishes
/// as the order grows: J for sign 1 (order >= x - 1), I for sign -1. x is 2 or more.
[[nodiscard]] DoubleDouble RatioOfVanishing(double order, double x, double sign);

}  // namespace kalvex::specfun
