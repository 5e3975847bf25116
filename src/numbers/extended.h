// Arithmetic and elementary functions of some 64 bits of precision in pairs of doubles, the same
// bits on every processor. Where a part of a value is so small that a double holds all of its
// digits that count, it is computed as one: that is much quicker.
#pragma once

#include <cstddef>

#include "numbers/double_double.h"

namespace kalvex {

using Extended = DoubleDouble;

// Errors are below 2^-100 of the largest argument of a sum, and of a product or quotient.

inline Extended operator-(Extended a) {
    return {-a.high, -a.low};
}

inline Extended operator+(Extended a, Extended b) {
    const Extended sum = TwoSum(a.high, b.high);
    return QuickTwoSum(sum.high, sum.low + (a.low + b.low));
}

inline Extended operator+(Extended a, double b) {
    const Extended sum = TwoSum(a.high, b);
    return QuickTwoSum(sum.high, sum.low + a.low);
}

inline Extended operator+(double a, Extended b) {
    return b + a;
}

inline Extended operator-(Extended a, Extended b) {
    return a + -b;
}

inline Extended operator-(Extended a, double b) {
    return a + -b;
}

inline Extended operator-(double a, Extended b) {
    return -b + a;
}

inline Extended operator*(Extended a, Extended b) {
    return Multiply(a, b);
}

inline Extended operator*(Extended a, double b) {
    return Multiply(a, b);
}

inline Extended operator*(double a, Extended b) {
    return Multiply(b, a);
}

inline Extended operator/(Extended a, Extended b) {
    const double inverse = 1 / b.high;
    const double quotient = a.high * inverse;
    const double rest = std::fma(-quotient, b.high, a.high) + (a.low - quotient * b.low);
    return QuickTwoSum(quotient, rest * inverse);
}

inline Extended operator/(Extended a, double b) {
    return a / Extended{b};
}

inline Extended operator/(double a, Extended b) {
    return Extended{a} / b;
}

/// a times a power of two, exactly but for underflow.
inline Extended TimesPower(Extended a, double power) {
    return {a.high * power, a.low * power};
}

/// The square root of a > 0.
inline Extended SquareRoot(Extended a) {
    const double root = std::sqrt(a.high);
    return QuickTwoSum(root, (std::fma(-root, root, a.high) + a.low) / (2 * root));
}

/// A power series: the first three coefficients, and the rest as doubles.
template <std::size_t count>
struct PowerCoefficients {
    Extended head[3];
    double tail[count];
};

/// Its sum; full precision where the terms from the fourth on are below 2^-10 of it together.
template <std::size_t count>
Extended Polynomial(const PowerCoefficients<count>& of, Extended t) {
    double tail = 0;
    for (std::size_t i = count; i-- > 0;)
        tail = tail * t.high + of.tail[i];
    const Extended sum = of.head[2] + tail * t.high;
    return (sum * t + of.head[1]) * t + of.head[0];
}

/// A number times a power of two: values beyond the range of doubles.
struct Scaled {
    Extended value;
    int exponent = 0;
};

/// Infinite, zero or denormal where it must be.
double ToDouble(Scaled a);

inline Scaled operator*(Scaled a, Extended b) {
    return {a.value * b, a.exponent};
}

/// a + b.
Scaled Sum(Scaled a, Scaled b);

/// ln(a) with an absolute error below 2^-62 + 2^-100 |ln(a)|. a > 0.
Extended LogOf(Extended a);

/// exp(t), the error below 2^-61 + 2^-100 |t|; far beyond the range of doubles only the side of it
/// is right.
Scaled ExpOf(Extended t);

/// exp(t) - 1 with a relative error below 2^-58. |t| up to 1/2.
Extended ExpMinusOneOf(Extended t);

/// atan(y / x) for 0 <= y <= 2 x, relative error below 2^-60.
Extended AngleOf(Extended y, Extended x);

struct CosineSine {
    Extended cosine;
    Extended sine;
};

/// The unit vector a turned back by b.
inline CosineSine TurnedBack(CosineSine a, CosineSine b) {
    return {a.cosine * b.cosine + a.sine * b.sine, a.sine * b.cosine - a.cosine * b.sine};
}

/// cos(pi t) and sin(pi t); exact at the multiples of 1/2. |t| up to 2^30.
CosineSine CosineSinePi(Extended t);

/// cos(x) and sin(x) with an absolute error below 2^-61, near 0 relative to the sine.
CosineSine CosineSineOf(Extended x);

/// cos(x - pi t) and sin(x - pi t), absolute error below 2^-60 for |t| up to 2^30 and all finite x.
CosineSine CosineSineLess(double x, Extended t);

}  // namespace kalvex
