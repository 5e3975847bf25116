// What the Bessel functions share. They are computed in the extended format of the processor (64
// bits of precision, powers of ten to 4932): its eleven guard bits take up the rounding of a
// thousand steps of a recurrence, and no intermediate value overflows where the result does not.
#pragma once

#include "specfun/precision/extended.h"

namespace kalvex::specfun {

/// order = whole + part exactly, part in -1/2..1/2. For orders from 0 to 2^30.
struct SplitOrder {
    int whole;
    Extended part;
};
SplitOrder Split(double order);

/// A function at two neighbouring orders.
struct OrderPair {
    Extended at;
    Extended next;
};

/// x^n, n >= 0.
Extended IntegerPower(Extended x, int n);

/// 1/Gamma(1 + part) = even + part odd and 1/Gamma(1 - part) = even - part odd, |part| <= 1/2.
struct ReciprocalGamma {
    Extended even;
    Extended odd;
};
ReciprocalGamma ReciprocalGammaParts(Extended part);

/// (x/2)^order / Gamma(order + 1), the leading factor of the power series of J and I, for order >=
/// 0 and x up to 20 or x^2/4 up to order + 1. Zero where it underflows, so for orders above 1000.
Extended LeadingFactor(double order, Extended x);

/// The sum over k of q^k / (k! (order+1)...(order+k)), the rest of the power series: of I for
/// q = x^2/4, of J for q = -x^2/4, there with x^2/4 <= order + 1 so that nothing cancels.
Extended PowerSeries(Extended order, Extended q);

/// f(order+1)/f(order) for the solution of f(k+1) = 2k/x f(k) - sign f(k-1) that vanishes with
/// growing order: J for sign 1 (order >= x - 1), I for sign -1.
Extended RatioOfVanishing(Extended order, Extended x, int sign);

}  // namespace kalvex::specfun
