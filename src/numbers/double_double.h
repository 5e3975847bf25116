// Double-double numbers: the unevaluated sum of two doubles, some 31 decimal digits. The low part
// is at most half a unit in the last place of the high part; such a pair is called normalised.
// TwoSum is Knuth's algorithm, TwoProduct uses a fused multiplication. The operations follow Dekker
// (1971); Joldes, Muller and Popescu (2017) prove bounds of their errors. Arguments are finite and
// far enough from the ends of the range that products of parts neither overflow nor become
// denormal.
#pragma once

#include <cmath>
#include <type_traits>

#include "numbers/processor.h"

namespace kalvex {

struct DoubleDouble {
    double high = 0;
    double low = 0;
};

/// a + b exactly.
[[nodiscard]] inline DoubleDouble TwoSum(double a, double b) {
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// a + b exactly, for |a| >= |b| or a = 0.
[[nodiscard]] inline DoubleDouble QuickTwoSum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a b exactly.
[[nodiscard]] inline DoubleDouble TwoProduct(double a, double b) {
    const double product = a * b;
    return {product, std::fma(a, b, -product)};
}

/// The nearest double.
[[nodiscard]] inline double ToDouble(DoubleDouble a) {
    return a.high + a.low;
}

// Operators. The result is normalised and its relative error is below 2^-103, even where the
// arguments of a sum cancel.

[[nodiscard]] inline DoubleDouble operator-(DoubleDouble a) {
    return {-a.high, -a.low};
}

[[nodiscard]] inline DoubleDouble operator+(DoubleDouble a, double b) {
    const DoubleDouble sum = TwoSum(a.high, b);
    return QuickTwoSum(sum.high, sum.low + a.low);
}

[[nodiscard]] inline DoubleDouble operator+(double a, DoubleDouble b) {
    return b + a;
}

[[nodiscard]] inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble highs = TwoSum(a.high, b.high);
    const DoubleDouble lows = TwoSum(a.low, b.low);
    const DoubleDouble sum = QuickTwoSum(highs.high, highs.low + lows.high);
    return QuickTwoSum(sum.high, sum.low + lows.low);
}

[[nodiscard]] inline DoubleDouble operator-(DoubleDouble a, double b) {
    return a + -b;
}

[[nodiscard]] inline DoubleDouble operator-(double a, DoubleDouble b) {
    return -b + a;
}

[[nodiscard]] inline DoubleDouble operator-(DoubleDouble a, DoubleDouble b) {
    return a + -b;
}

[[nodiscard]] inline DoubleDouble operator*(DoubleDouble a, double b) {
    const DoubleDouble product = TwoProduct(a.high, b);
    return QuickTwoSum(product.high, product.low + a.low * b);
}

[[nodiscard]] inline DoubleDouble operator*(double a, DoubleDouble b) {
    return b * a;
}

[[nodiscard]] inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble product = TwoProduct(a.high, b.high);
    return QuickTwoSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

[[nodiscard]] inline DoubleDouble operator/(DoubleDouble a, double b) {
    const double quotient = a.high / b;
    const DoubleDouble product = TwoProduct(quotient, b);
    const double rest = ((a.high - product.high) - product.low) + a.low;
    return QuickTwoSum(quotient, rest / b);
}

[[nodiscard]] inline DoubleDouble operator/(DoubleDouble a, DoubleDouble b) {
    const double first = a.high / b.high;
    DoubleDouble rest = a - b * first;
    const double second = rest.high / b.high;
    rest = rest - b * second;
    return QuickTwoSum(first, second) + rest.high / b.high;
}

[[nodiscard]] inline DoubleDouble operator/(double a, DoubleDouble b) {
    return DoubleDouble{a} / b;
}

template <typename Number>
DoubleDouble& operator+=(DoubleDouble& a, Number b) {
    return a = a + b;
}

template <typename Number>
DoubleDouble& operator-=(DoubleDouble& a, Number b) {
    return a = a - b;
}

template <typename Number>
DoubleDouble& operator*=(DoubleDouble& a, Number b) {
    return a = a * b;
}

// Loose forms: fewer operations, for values whose last digits do not matter. A loose sum adds the
// low parts as plain doubles. Its error is below 2^-104 (|a| + |b|), so that digits are lost where
// a and b cancel. A loose quotient multiplies by the rounded inverse of b; its relative error is
// below 2^-102.

[[nodiscard]] inline DoubleDouble LooseSum(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble sum = TwoSum(a.high, b.high);
    return QuickTwoSum(sum.high, sum.low + (a.low + b.low));
}

[[nodiscard]] inline DoubleDouble LooseDifference(DoubleDouble a, DoubleDouble b) {
    return LooseSum(a, -b);
}

[[nodiscard]] inline DoubleDouble LooseQuotient(DoubleDouble a, DoubleDouble b) {
    const double inverse = 1 / b.high;
    const double quotient = a.high * inverse;
    const double rest = std::fma(-quotient, b.high, a.high) + (a.low - quotient * b.low);
    return QuickTwoSum(quotient, rest * inverse);
}

[[nodiscard]] inline DoubleDouble LooseQuotient(DoubleDouble a, double b) {
    return LooseQuotient(a, DoubleDouble{b});
}

[[nodiscard]] inline DoubleDouble LooseQuotient(double a, DoubleDouble b) {
    return LooseQuotient(DoubleDouble{a}, b);
}

/// The square root of a, which is above 0; relative error below 2^-103.
[[nodiscard]] inline DoubleDouble LooseSqrt(DoubleDouble a) {
    const double root = std::sqrt(a.high);
    return QuickTwoSum(root, (std::fma(-root, root, a.high) + a.low) / (2 * root));
}

/// The square root of a, which is at least 0; relative error below 2^-103.
[[nodiscard]] inline DoubleDouble Sqrt(DoubleDouble a) {
    if (a.high <= 0) return {};
    const double root = std::sqrt(a.high);
    const DoubleDouble rest = a - TwoProduct(root, root);
    return QuickTwoSum(root, rest.high / (2 * root));
}

/// The high part. Templates use this function and DifferenceOf to serve plain doubles and
/// double-doubles alike.
[[nodiscard]] inline double HighOf(double a) {
    return a;
}

[[nodiscard]] inline double HighOf(DoubleDouble a) {
    return a.high;
}

/// a - b: rounded as a double, exact as a double-double.
template <typename Number>
[[nodiscard]] Number DifferenceOf(double a, double b) {
    if constexpr (std::is_same_v<Number, double>)
        return a - b;
    else
        return TwoSum(a, -b);
}

/// a times 2^exponent.
[[nodiscard]] inline DoubleDouble Scale(DoubleDouble a, int exponent) {
    return {std::ldexp(a.high, exponent), std::ldexp(a.low, exponent)};
}

/// exp(a) - 1 for |a| at most 1, relative error below 2^-90.
[[nodiscard]] DoubleDouble ExpMinusOne(DoubleDouble a);

/// exp(a) 2^-exponent with a result between 1/2 and 2, for |a| up to 1e9; absolute error of the
/// exponent a of 2^-100 |a|.
[[nodiscard]] DoubleDouble ExpScaled(DoubleDouble a, int& exponent);

/// exp(a); infinite above the range, 0 or denormal below it.
[[nodiscard]] DoubleDouble Exp(DoubleDouble a);

/// Natural logarithm for a above 0, absolute error below 2^-95 + 2^-102 |ln a|.
[[nodiscard]] DoubleDouble Log(DoubleDouble a);

/// ln(1 + a) for |a| below 1/2, relative error below 2^-90.
[[nodiscard]] DoubleDouble LogOnePlus(DoubleDouble a);

/// a less the nearest multiple of pi/2, which is `quadrant` (0 to 3) quarter turns modulo four;
/// for |a| up to 1e15, absolute error below 2^-105 + 2^-107 |a|.
[[nodiscard]] DoubleDouble ReduceByHalfPi(DoubleDouble a, int& quadrant);

struct SinCosPair {
    double sine = 0;
    double cosine = 0;
};

/// Sine and cosine of a double-double angle, |a| up to 1e15. Each is as accurate as the runtime's
/// own function.
[[nodiscard]] SinCosPair SinCos(DoubleDouble a);

inline constexpr DoubleDouble kPi = {3.141592653589793116, 1.2246467991473532072e-16};
inline constexpr DoubleDouble kHalfPi = {1.570796326794896558, 6.1232339957367660359e-17};
inline constexpr DoubleDouble kLn2 = {0.69314718055994528623, 2.3190468138462995584e-17};
inline constexpr DoubleDouble kEulerGamma = {0.57721566490153286555, -4.942915152430644868e-18};

}  // namespace kalvex
