// The power series of the Gauss hypergeometric function with as many digits as it takes. Internal
// to the special functions.
//
// Doubles are integers times powers of two, and so are a+k, b+k and c+k. With the numerators
// N(k) = (a+k) (b+k) z and the denominators D(k) = (c+k) (k+1), all of them integers of few limbs,
// the sum of the terms up to the k-th is A(k)/B(k) and the k-th T(k)/B(k), where
//   T(k+1) = T(k) N(k),  B(k+1) = B(k) D(k),  A(k+1) = A(k) D(k) + T(k+1),
// so that nothing is divided but the end.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>

#include "numbers/limb_number.h"
#include "numbers/wide.h"
#include "specfun/hypergeometric/counter.h"
#include "specfun/hypergeometric/rest_bound.h"

namespace kalvex::specfun {

/// Holds a double, and the sums and differences of those that are not too far apart, exactly.
using Exact = Wide<6>;

struct WideParameters {
    Exact a;
    Exact b;
    Exact c;
};

/// The quotient of the two.
struct WideArgument {
    Exact z;
    Exact over = WideOf<6>(1);
};

/// A number and the logarithm to base 2 of a bound of its error.
template <std::size_t limbs>
struct Bounded {
    Wide<limbs> value;
    double error = -INFINITY;
};

/// The logarithm to base 2 of a bound of the magnitude.
template <std::size_t limbs>
[[nodiscard]] double SizeOf(const Wide<limbs>& a) {
    return a.sign == 0 ? -INFINITY : static_cast<double>(a.exponent);
}

template <std::size_t limbs>
[[nodiscard]] Bounded<limbs> Multiply(const Bounded<limbs>& a, const Bounded<limbs>& b) {
    const double ofA = SizeOf(a.value);
    const double ofB = SizeOf(b.value);
    const double error = std::max(
        {a.error + ofB, b.error + ofA, a.error + b.error, ofA + ofB - Wide<limbs>::kBits + 2});
    return {Multiply(a.value, b.value), error + 2};
}

template <std::size_t limbs>
[[nodiscard]] Bounded<limbs> Add(const Bounded<limbs>& a, const Bounded<limbs>& b) {
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
    bool isLong = false;  // failed for want of terms, which more limbs do not help
};

inline constexpr int kMostWideTerms = 6000;

/// What is known of the terms once all factors are positive.
struct FallingTerms {
    double a;
    double b;
    double c;
    double z;
    double settled;  // the factors are positive beyond

    FallingTerms(const WideParameters& p, const WideArgument& argument)
        : a(ToDouble(p.a)),
          b(ToDouble(p.b)),
          c(ToDouble(p.c)),
          z(ToDouble(argument.z) / ToDouble(argument.over)),
          settled(-std::min({a, b, c})) {}

    /// After the k-th ratio, which has led to a term of that size.
    [[nodiscard]] double Rest(int k, double size) const {
        return RestAfter(a + k + 1, b + k + 1, c + k + 1, k + 2, z, size);
    }
};

/// The numerators and denominators one after the other.
struct Factors {
    Counter a;
    Counter b;
    Counter c;
    Factor z;
    Factor over;
    int sign = 1;            // of z/over
    std::int64_t limbs = 0;  // that each ratio is shifted up by
    bool failed = true;

    Factor numerator = {};
    Factor denominator = {};
    Factor part = {};

    Factors(const WideParameters& p, const WideArgument& argument)
        : a(p.a), b(p.b), c(p.c), sign(argument.z.sign * argument.over.sign) {
        const std::int64_t ofZ = LowestBit(argument.z);
        const std::int64_t ofOver = LowestBit(argument.over);
        const std::int64_t scale = a.scale + b.scale + ofZ - c.scale - ofOver;
        const std::int64_t up = scale & 63;
        const double upper = a.bits + b.bits + static_cast<double>(argument.z.exponent - ofZ);
        const double lower = c.bits + static_cast<double>(argument.over.exponent - ofOver);
        const auto limbsOf = [](double bits) { return std::ceil(bits / 64); };
        // a denominator is multiplied by twice
        const double ofUpper = limbsOf(upper + static_cast<double>(up)) + 2 * limbsOf(lower);
        const double ofLower = limbsOf(upper) + 2 * limbsOf(lower + 64 - static_cast<double>(up));
        const bool raises = up == 0 || ofUpper <= ofLower;
        limbs = (scale - up) / 64 + (raises ? 0 : 1);
        failed = a.failed || b.failed || c.failed ||
                 !SetInteger(argument.z, ofZ - (raises ? up : 0), z) ||
                 !SetInteger(argument.over, ofOver - (raises ? 0 : 64 - up), over);
    }

    /// The k-th; the sign of the ratio.
    [[nodiscard]] int Take(int k) {
        Factor next;
        next.digits[0] = static_cast<std::uint64_t>(k) + 1;
        next.count = 1;
        SetProduct(a.magnitude, b.magnitude, part);
        SetProduct(part, z, numerator);
        SetProduct(c.magnitude, next, part);
        SetProduct(part, over, denominator);
        const int ratio = (a.negative != b.negative) != c.negative ? -sign : sign;
        a.Next();
        b.Next();
        c.Next();
        return ratio;
    }
};

/// The sums of the magnitudes of the terms, and of k times those, in plain arithmetic.
struct Magnitudes {
    double term = 1;
    double exponent = 0;  // of the term
    double sum = 1;
    double slopes = 1;
    double common = 0;  // exponent of the sums

    void Take(const Factors& factors, int k) {
        constexpr double kFar = 300;
        const double shift = static_cast<double>(factors.limbs) +
                             static_cast<double>(factors.numerator.count) -
                             static_cast<double>(factors.denominator.count);
        term *= LeadingPart(factors.numerator) / LeadingPart(factors.denominator);
        if (shift != 0) term *= PowerOfTwo(64 * shift);
        if (term > PowerOfTwo(kFar) || term < PowerOfTwo(-kFar)) {
            const double by = term > 1 ? kFar : -kFar;
            term *= PowerOfTwo(-by);
            exponent += by;
        }
        if (exponent > common) {
            sum *= PowerOfTwo(common - exponent);
            slopes *= PowerOfTwo(common - exponent);
            common = exponent;
        }
        const double own = exponent == common ? term : term * PowerOfTwo(exponent - common);
        sum += own;
        slopes += own * (k + 2.0);
    }
};

/// The sum so far. What each step cuts off is, beside the sum, at most three units u = 2^-kBits of
/// the greatest sum or term so far, and k units of the k-th term: of K terms 4 K u times the sum of
/// their magnitudes in all, and a little more with the slopes.
template <std::size_t limbs, bool slopes, std::size_t below>
struct RunningSum {
    LimbNumber<limbs> term = OneInLimbs<limbs>();
    LimbNumber<limbs> value = term;
    LimbNumber<limbs> slope;
    LimbNumber<below> denominator = OneInLimbs<below>();

    void Take(const Factors& factors, int ratio, int k) {
        MultiplyBy(factors.numerator, term);
        term.exponent += factors.limbs;
        term.sign *= ratio;
        MultiplyBy(factors.denominator, value);
        AddTo(term, value);
        MultiplyBy(factors.denominator, denominator);
        if constexpr (slopes) {
            Factor next;
            next.digits[0] = static_cast<std::uint64_t>(k) + 1;
            next.count = 1;
            LimbNumber<limbs> risen = term;
            MultiplyBy(next, risen);
            MultiplyBy(factors.denominator, slope);
            AddTo(risen, slope);
        }
    }

    [[nodiscard]] Bounded<limbs> Quotient(const LimbNumber<limbs>& above, double error,
                                          int k) const {
        Bounded<limbs> result = {Divide(WideOf<limbs>(above), WideOf<limbs>(denominator)), error};
        const double ofBelow =
            SizeOf(result.value) + std::log2(k + 1.0) + 2 - LimbNumber<below>::kBits;
        result.error = std::max(error, ofBelow) + 1;
        return result;
    }

    /// About the logarithm to base 2 of the value.
    [[nodiscard]] double Size() const {
        if (value.sign == 0) return -INFINITY;
        const auto own = [](std::uint64_t top, std::int64_t exponent) {
            return std::bit_width(top) + 64.0 * static_cast<double>(exponent);
        };
        return own(value.digits[limbs - 1], value.exponent + std::int64_t{limbs}) -
               own(denominator.digits[below - 1], denominator.exponent + std::int64_t{below});
    }
};

/// The terms, the exact parameters being a, b and c, until the rest counts for nothing beside what
/// rounding leaves unknown or beside 2^-wanted times the sum. The relative error is at least that
/// of the denominator, of `below` limbs.
template <std::size_t limbs, bool slopes, std::size_t below = limbs>
[[nodiscard]] WideSum<limbs> SumWide(const WideParameters& p, const WideArgument& argument,
                                     double wanted, double most = kMostWideTerms) {
    constexpr int kBetweenLooks = 4;
    constexpr double kSmall = 0x1p-60;
    constexpr double kRoundings = 3;  // 8, as a logarithm
    const FallingTerms falling(p, argument);
    Factors factors(p, argument);
    RunningSum<limbs, slopes, below> sum;
    Magnitudes sizes;
    if (factors.failed) return {};
    double rest = INFINITY;
    double rounding = INFINITY;
    int k = 0;
    for (; true; ++k) {
        if (!(k < most)) return {{}, {}, true, true};
        const int ratio = factors.Take(k);
        const bool ends = factors.numerator.count == 0;
        if (!ends && factors.denominator.count == 0) return {};
        if (!ends) {
            sum.Take(factors, ratio, k);
            sizes.Take(factors, k);
        }
        const bool looks =
            k > falling.settled && k % kBetweenLooks == 0 && sizes.term < kSmall * sizes.sum;
        if (!ends && !looks) continue;
        const double all = slopes ? sizes.slopes : sizes.sum;
        rounding = std::log2(all * (k + 2.0)) + sizes.common + kRoundings - sum.value.kBits;
        rest = ends ? -INFINITY : falling.Rest(k, std::log2(sizes.term) + sizes.exponent);
        if (rest < std::max(rounding, sum.Size() - wanted)) break;
    }
    const double error = std::max(rounding, rest) + 1;
    return {sum.Quotient(sum.value, error, k), sum.Quotient(sum.slope, error, k),
            !std::isfinite(error)};
}

}  // namespace kalvex::specfun
