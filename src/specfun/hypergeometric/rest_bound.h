// What the terms of the Gauss hypergeometric series that are left out may be. Internal to the
// special functions.
#pragma once

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {

/// A bound of (a+j)(b+j)/((c+j)(next+j)) for all j from 0 up, all four being positive. It is 1 and
/// (alpha j + beta)/((c+j)(next+j)), where alpha < 0 below the greater of 1 and its first value,
/// and where alpha and beta are positive it falls for good once it falls. Else by quotients of two
/// factors, which tend to 1 monotonically.
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

/// A power p with (a+j)(b+j)/((c+j)(next+j)) at most 1 - p/(next+j) for all j from 0 up, all four
/// being positive: next+j times 1 less that is (alpha j + beta)/(c+j), between its first value and
/// alpha.
[[nodiscard]] inline double LeastPower(double a, double b, double c, double next) {
    constexpr double kRounding = 1 - 0x1p-30;
    return std::min(c + next - a - b, next - a * b / c) * kRounding;
}

/// The logarithm to base 2 of a bound of the sum over j > k of j t(j), by the k-th term t, once all
/// factors are positive. a, b, c and next are those of the next ratio. By a geometric series, or by
/// t(j) <= t (next/j)^p.
[[nodiscard]] inline double RestAfter(double a, double b, double c, double next, double z,
                                      double term) {
    constexpr double kRounding = 1 + 0x1p-40;
    constexpr double kLeastPower = 3;
    const double ratio = std::fabs(z) * GreatestRatio(a, b, c, next) * kRounding;
    const double geometric = ratio < 1 ? -2 * std::log2(1 - ratio) : INFINITY;
    const double power = std::fabs(z) <= 1 ? LeastPower(a, b, c, next) : 0;
    const double falling = power > kLeastPower ? std::log2(next / (power - 2)) : INFINITY;
    return term + std::log2(next) + std::min(geometric, falling) + 1;
}

}  // namespace kalvex::specfun
