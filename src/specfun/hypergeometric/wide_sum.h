// The power series of the Gauss hypergeometric function with as many digits as it takes. Internal
// to the special functions.
#pragma once

#include <algorithm>
#include <cmath>

#include "specfun/precision/wide.h"

namespace kalvex::specfun {

template <std::size_t limbs>
struct WideParameters {
    Wide<limbs> a;
    Wide<limbs> b;
    Wide<limbs> c;
};

/// A number and the logarithm to base 2 of a bound of its error.
template <std::size_t limbs>
struct Bounded {
    Wide<limbs> value;
    double error = -INFINITY;
};

/// The logarithm to base 2 of a bound of the magnitude.
template <std::size_t limbs>
double SizeOf(const Wide<limbs>& a) {
    return a.sign == 0 ? -INFINITY : static_cast<double>(a.exponent);
}

template <std::size_t limbs>
Bounded<limbs> Multiply(const Bounded<limbs>& a, const Bounded<limbs>& b) {
    const double ofA = SizeOf(a.value);
    const double ofB = SizeOf(b.value);
    const double error = std::max(
        {a.error + ofB, b.error + ofA, a.error + b.error, ofA + ofB - Wide<limbs>::kBits + 2});
    return {Multiply(a.value, b.value), error + 2};
}

template <std::size_t limbs>
Bounded<limbs> Add(const Bounded<limbs>& a, const Bounded<limbs>& b) {
    const double size = std::max(SizeOf(a.value), SizeOf(b.value));
    const double error = std::max({a.error, b.error, size - Wide<limbs>::kBits + 2});
    return {Add(a.value, b.value), error + 2};
}

/// Value and slope, z times the derivative.
template <std::size_t limbs>
struct WideSum {
    Bounded<limbs> value;
    Bounded<limbs> slope;
    bool failed = true;
};

inline constexpr int kMostWideTerms = 6000;

/// A bound of (a+j)(b+j)/((c+j)(next+j)) for all j from 0 up, all four being positive. It is 1 and
/// (alpha j + beta)/((c+j)(next+j)), where alpha < 0 below the greater of 1 and its first value,
/// and where alpha and beta are positive it falls for good once it falls. Else by quotients of two
/// factors, which tend to 1 monotonically.
inline double GreatestRatio(double a, double b, double c, double next) {
    const double ratio = a * b / (c * next);
    const double alpha = a + b - c - next;
    const double beta = a * b - c * next;
    if (alpha < 0) return std::max(1.0, ratio);
    if (beta >= 0 && alpha * c * next <= beta * (c + next)) return ratio;
    const double straight = std::max(1.0, a / c) * std::max(1.0, b / next);
    const double crossed = std::max(1.0, b / c) * std::max(1.0, a / next);
    return std::min(straight, crossed);
}

/// The logarithm to base 2 of a bound of the sum over j > k of j t(j), by the k-th term t, once all
/// factors are positive. a, b, c and next are those of the next ratio.
inline double RestAfter(double a, double b, double c, double next, double z, double term) {
    constexpr double kRounding = 1 + 0x1p-40;
    const double ratio = std::fabs(z) * GreatestRatio(a, b, c, next) * kRounding;
    if (!(ratio < 1)) return INFINITY;
    return term + std::log2(next) - 2 * std::log2(1 - ratio) + 1;
}

/// The k-th term made the next one; 0 after the last. False where c+k is 0.
template <std::size_t limbs>
bool TakeTerm(const WideParameters<limbs>& p, const Wide<limbs>& z, int k, Wide<limbs>& term) {
    const Wide<limbs> ofC = PlusInteger(p.c, k);
    const Wide<limbs> ofBoth = Multiply(PlusInteger(p.a, k), PlusInteger(p.b, k));
    if (ofC.sign == 0 && ofBoth.sign != 0) return false;
    const Wide<limbs> next = WideOf<limbs>(k + 1);
    term = ofBoth.sign == 0 ? ofBoth
                            : Divide(Multiply(ofBoth, Multiply(z, term)), Multiply(next, ofC));
    return true;
}

/// The terms, the exact parameters being a, b and c, until the rest counts for nothing beside what
/// rounding leaves unknown or beside 2^-wanted times the sum. Each term has seven roundings more
/// than the one before, and each sum one.
template <std::size_t limbs>
WideSum<limbs> SumWide(const WideParameters<limbs>& p, const Wide<limbs>& z, double wanted) {
    constexpr int kBetweenLooks = 4;
    constexpr double kRoundings = 8;  // and the sum of 1/k, as a logarithm
    const double a = ToDouble(p.a);
    const double b = ToDouble(p.b);
    const double c = ToDouble(p.c);
    const double argument = ToDouble(z);
    const double settled = -std::min({a, b, c});
    Wide<limbs> term = WideOf<limbs>(1);
    WideSum<limbs> sum = {{term, 0}, {}, true};
    double largest = 0;
    double rest = INFINITY;
    int k = 0;
    for (; k < kMostWideTerms; ++k) {
        if (!TakeTerm(p, z, k, term)) return sum;
        const double size = SizeOf(term);
        rest = term.sign == 0 ? -INFINITY : INFINITY;
        if (term.sign == 0) break;
        sum.value.value = Add(sum.value.value, term);
        sum.slope.value = Add(sum.slope.value, Multiply(WideOf<limbs>(k + 1), term));
        largest = std::max(largest, size + 3.0 * (std::ilogb(k + 1.0) + 1));
        if (k <= settled || k % kBetweenLooks != 0) continue;
        rest = RestAfter(a + k + 1, b + k + 1, c + k + 1, k + 2, argument, size);
        const double known = largest - Wide<limbs>::kBits;
        if (rest < std::max(known, SizeOf(sum.value.value) - wanted)) break;
    }
    const double rounding = largest + kRoundings + std::log2(k + 1.0) - Wide<limbs>::kBits;
    sum.value.error = std::max(rounding, rest) + 1;
    sum.slope.error = sum.value.error;
    sum.failed = !std::isfinite(sum.value.error);
    return sum;
}

}  // namespace kalvex::specfun
