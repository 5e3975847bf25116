// Arithmetic and elementary functions of some 64 bits of precision in pairs of doubles, the same
// bits on every processor. Where a part of a value is so small that a double holds all of its
// digits that count, it is computed as one: that is much quicker.
#pragma once

#include <cstddef>

#include "numbers/double_double.h"
#include "numbers/power_coefficients.h"

namespace kalvex {

/// a times a power of two, exactly but for underflow.
inline DoubleDouble TimesPower(DoubleDouble a, double power) {
    return {a.high * power, a.low * power};
}

/// The sum of a power series; full precision where the terms from the fourth on are below 2^-10 of
/// it together.
template <std::size_t count>
DoubleDouble Polynomial(const PowerCoefficients<count>& of, DoubleDouble t) {
    double tail = 0;
    for (std::size_t i = count; i-- > 0;)
        tail = tail * t.high + of.tail[i];
    const DoubleDouble sum = of.head[2] + tail * t.high;
    return LooseSum(LooseSum(sum * t, of.head[1]) * t, of.head[0]);
}

/// A number times a power of two: values beyond the range of doubles.
struct Scaled {
    DoubleDouble value;
    int exponent = 0;
};

/// Infinite, zero or denormal where it must be.
double ToDouble(Scaled a);

inline Scaled operator*(Scaled a, DoubleDouble b) {
    return {a.value * b, a.exponent};
}

/// a + b.
Scaled Sum(Scaled a, Scaled b);

/// ln(a) with an absolute error below 2^-62 + 2^-100 |ln(a)|. a > 0.
DoubleDouble LogOf(DoubleDouble a);

/// exp(t), the error below 2^-61 + 2^-100 |t|; far beyond the range of doubles only the side of it
/// is right.
Scaled ExpOf(DoubleDouble t);

/// exp(t) - 1 with a relative error below 2^-58. |t| up to 1/2.
DoubleDouble ExpMinusOneOf(DoubleDouble t);

/// atan(y / x) for 0 <= y <= 2 x, relative error below 2^-60.
DoubleDouble AngleOf(DoubleDouble y, DoubleDouble x);

struct CosineSine {
    DoubleDouble cosine;
    DoubleDouble sine;
};

/// The unit vector a turned back by b.
inline CosineSine TurnedBack(CosineSine a, CosineSine b) {
    return {LooseSum(a.cosine * b.cosine, a.sine * b.sine),
            LooseDifference(a.sine * b.cosine, a.cosine * b.sine)};
}

/// cos(pi t) and sin(pi t); exact at the multiples of 1/2. |t| up to 2^30.
CosineSine CosineSinePi(DoubleDouble t);

/// cos(x) and sin(x) with an absolute error below 2^-61, near 0 relative to the sine.
CosineSine CosineSineOf(DoubleDouble x);

/// cos(x - pi t) and sin(x - pi t), absolute error below 2^-60 for |t| up to 2^30 and all finite x.
CosineSine CosineSineLess(double x, DoubleDouble t);

}  // namespace kalvex
