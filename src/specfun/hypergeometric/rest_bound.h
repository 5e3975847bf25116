// A bound of the terms of the Gauss hypergeometric series that a sum leaves out. Internal to the
// special functions.
#pragma once

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {

/// A bound of the ratio (a+j)(b+j)/((c+j)(next+j)) for all j >= 0. a, b, c and next are positive.
///
/// The ratio is 1 + (alpha j + beta)/((c+j)(next+j)). If alpha < 0, it never exceeds the greater of
/// 1 and its value at j = 0. If it falls at j = 0 and beta >= 0, it falls from there on. In all
/// other cases it is bounded as the product of two quotients such as (a+j)/(c+j), each of which
/// tends to 1 monotonically.
[[nodiscard]] inline double GreatestRatio(double a, double b, double c, double next) {
    const double ratio = a * b / (c * next);
    const double alpha = a + b - c - next;
    const double beta = a * b - c * next;
    if (alpha < 0) return std::max(1.0, ratio);
    if (beta >= 0 && alpha * c * next <= beta * (c + next)) return ratio;
    const double straight = std::max(1.0, a / c) * std::max(1.0, b / next);
    const double crossed = std::max(1.0, b / c) * std::max(1.0, a / next);
    return std::min(straight, crossed);
}

/// A power p such that (a+j)(b+j)/((c+j)(next+j)) <= 1 - p/(next+j) for all j >= 0. a, b, c and
/// next are positive. One minus the ratio, times next+j, is a quotient of two linear functions of
/// j. It lies between its value at j = 0 and its limit c + next - a - b; p is the smaller of them.
[[nodiscard]] inline double LeastPower(double a, double b, double c, double next) {
    constexpr double kRounding = 1 - 0x1p-30;  // chosen: far above the rounding of this expression
    return std::min(c + next - a - b, next - a * b / c) * kRounding;
}

/// A bound of the rest of the series: the logarithm to base 2 of a bound of the sum over j > k of
/// j |t(j)|. `term` is the logarithm to base 2 of |t(k)|. a, b, c and next are the factors of the
/// ratio t(k+1)/t(k), all of them positive, so that next = k+1; z is the argument. The rest is
/// bounded by a geometric series or, with the power p of LeastPower, by |t(j)| <= |t(k)|
/// (next/j)^p. The result is infinite where neither bound holds.
[[nodiscard]] inline double RestAfter(double a, double b, double c, double next, double z,
                                      double term) {
    constexpr double kRounding = 1 + 0x1p-40;  // chosen: far above the roundings of the ratio
    // Chosen: next/(power-2) is infinite at 2 and too large to serve next to it.
    constexpr double kLeastPower = 3;
    const double ratio = std::fabs(z) * GreatestRatio(a, b, c, next) * kRounding;
    const double geometric = ratio < 1 ? -2 * std::log2(1 - ratio) : INFINITY;
    const double power = std::fabs(z) <= 1 ? LeastPower(a, b, c, next) : 0;
    const double falling = power > kLeastPower ? std::log2(next / (power - 2)) : INFINITY;
    // 1, a factor of 2: the sum exceeds the integral by its first term at most, which is smaller
    return term + std::log2(next) + std::min(geometric, falling) + 1;
}

}  // namespace kalvex::specfun
