// Elementary functions to some 64 bits, as double-doubles, with the same bits on every processor.
// Parts of a value that are so small that the last digits of a double do not matter in them are
// computed in plain doubles, which is much quicker.
#pragma once

#include <cstddef>

#include "numbers/double_double.h"
#include "numbers/power_coefficients.h"

namespace kalvex {

/// a times a power of two. Exact unless it underflows.
[[nodiscard]] inline DoubleDouble TimesPower(DoubleDouble a, double power) {
    return {a.high * power, a.low * power};
}

/// The sum of the series at t. It has full precision where the terms from the fourth on, together,
/// are below 2^-10 of it.
template <std::size_t count>
[[nodiscard]] DoubleDouble Polynomial(const PowerCoefficients<count>& of, DoubleDouble t) {
    double tail = 0;
    for (std::size_t i = count; i-- > 0;)
        tail = tail * t.high + of.tail[i];
    const DoubleDouble sum = of.head[2] + tail * t.high;
    return LooseSum(LooseSum(sum * t, of.head[1]) * t, of.head[0]);
}

/// value 2^exponent, for values that may lie beyond the range of doubles.
struct Scaled {
    DoubleDouble value;
    int exponent = 0;
};

/// The nearest double: infinite, zero or denormal where the value is out of range.
[[nodiscard]] double ToDouble(Scaled a);

[[nodiscard]] inline Scaled operator*(Scaled a, DoubleDouble b) {
    return {a.value * b, a.exponent};
}

/// a + b.
[[nodiscard]] Scaled Sum(Scaled a, Scaled b);

/// ln(a) with an absolute error below 2^-62 + 2^-100 |ln(a)|. a > 0.
[[nodiscard]] DoubleDouble LogOf(DoubleDouble a);

/// exp(t) with a relative error below 2^-61 + 2^-100 |t|. For |t| above 12,000 the result is merely
/// so large, or so small, that it is out of the range of doubles.
[[nodiscard]] Scaled ExpOf(DoubleDouble t);

/// exp(t) - 1 with a relative error below 2^-58. |t| up to 1/2.
[[nodiscard]] DoubleDouble ExpMinusOneOf(DoubleDouble t);

/// atan(y / x) for 0 <= y <= 2 x, relative error below 2^-60.
[[nodiscard]] DoubleDouble AngleOf(DoubleDouble y, DoubleDouble x);

struct CosineSine {
    DoubleDouble cosine;
    DoubleDouble sine;
};

/// The unit vector a, turned back by the angle of b.
[[nodiscard]] inline CosineSine TurnedBack(CosineSine a, CosineSine b) {
    return {LooseSum(a.cosine * b.cosine, a.sine * b.sine),
            LooseDifference(a.sine * b.cosine, a.cosine * b.sine)};
}

/// cos(pi t) and sin(pi t); exact at the multiples of 1/2. |t| up to 2^30.
[[nodiscard]] CosineSine CosineSinePi(DoubleDouble t);

/// cos(x) and sin(x) with an absolute error below 2^-61; near 0 the relative error of the sine is
/// as small.
[[nodiscard]] CosineSine CosineSineOf(DoubleDouble x);

/// cos(x - pi t) and sin(x - pi t) with an absolute error below 2^-60, for |t| up to 2^30 and all
/// finite x.
[[nodiscard]] CosineSine CosineSineLess(double x, DoubleDouble t);

}  // namespace kalvex
