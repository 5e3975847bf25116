// The power series of the Gauss hypergeometric function, summed in numbers of many digits. Internal
// to the special functions.
//
// Every double is an integer times a power of two. So are a+k, b+k, c+k and z. The ratio of two
// neighbouring terms therefore is a quotient of the integers N(k) = (a+k) (b+k) z and
// D(k) = (c+k) (k+1), which have few limbs. The k-th term is T(k)/B(k), and the sum of the terms
// up to it is A(k)/B(k), where
//   T(k+1) = T(k) N(k),  B(k+1) = B(k) D(k),  A(k+1) = A(k) D(k) + T(k+1).
// The only division is that of A by B after the last term.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>

#include "numbers/limb_number.h"
#include "numbers/wide.h"
#include "specfun/hypergeometric/counter.h"
#include "specfun/hypergeometric/rest_bound.h"

namespace kalvex::specfun {

/// Holds every double exactly. It also holds sums and differences of doubles exactly, as long as
/// their exponents are not too far apart: six limbs, chosen, are 384 bits, more than the 256 that a
/// parameter may have.
using Exact = Wide<6>;

struct WideParameters {
    Exact a;
    Exact b;
    Exact c;
};

/// The argument of the series, z / over.
struct WideArgument {
    Exact z;
    Exact over = WideOf<6>(1);
};

/// A number, and the logarithm to base 2 of a bound of its absolute error.
template <std::size_t limbs>
struct Bounded {
    Wide<limbs> value;
    double error = -INFINITY;
};

/// The logarithm to base 2 of a bound of |a|.
template <std::size_t limbs>
[[nodiscard]] double SizeOf(const Wide<limbs>& a) {
    return a.sign == 0 ? -INFINITY : static_cast<double>(a.exponent);
}

/// a b. The greatest of four parts of the error is taken, and 2 is added for their number. A
/// product is cut off by less than 4 units of its last place, the other 2.
template <std::size_t limbs>
[[nodiscard]] Bounded<limbs> Multiply(const Bounded<limbs>& a, const Bounded<limbs>& b) {
    const double ofA = SizeOf(a.value);
    const double ofB = SizeOf(b.value);
    const double error = std::max(
        {a.error + ofB, b.error + ofA, a.error + b.error, ofA + ofB - Wide<limbs>::kBits + 2});
    return {Multiply(a.value, b.value), error + 2};
}

/// a + b, with its error bounded in the same way.
template <std::size_t limbs>
[[nodiscard]] Bounded<limbs> Add(const Bounded<limbs>& a, const Bounded<limbs>& b) {
    const double size = std::max(SizeOf(a.value), SizeOf(b.value));
    const double error = std::max({a.error, b.error, size - Wide<limbs>::kBits + 2});
    return {Add(a.value, b.value), error + 2};
}

/// The value of a series and its slope, which is z times the derivative.
template <std::size_t limbs>
struct WideSum {
    Bounded<limbs> value;
    Bounded<limbs> slope;
    bool failed = true;
    bool isLong = false;  // failed because it has too many terms; more limbs do not help
};

/// The parameters as doubles, for a bound of the terms that are left out.
struct FallingTerms {
    double a;
    double b;
    double c;
    double z;
    double settled;  // a+k, b+k and c+k are positive for k above it

    FallingTerms(const WideParameters& p, const WideArgument& argument)
        : a(ToDouble(p.a)),
          b(ToDouble(p.b)),
          c(ToDouble(p.c)),
          z(ToDouble(argument.z) / ToDouble(argument.over)),
          settled(-std::min({a, b, c})) {}

    /// The bound of RestAfter once the k-th ratio is taken. `size` is the logarithm to base 2 of
    /// the magnitude of the term that this ratio has led to.
    [[nodiscard]] double Rest(int k, double size) const {
        return RestAfter(a + k + 1, b + k + 1, c + k + 1, k + 2, z, size);
    }
};

/// The numerators and the denominators of the ratios of neighbouring terms, in turn.
struct Factors {
    Counter a;
    Counter b;
    Counter c;
    Factor z;
    Factor over;
    int sign = 1;            // the sign of z / over
    std::int64_t limbs = 0;  // each ratio is 2^(64 limbs) numerator / denominator
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
        // The ratio has a factor 2^scale. Whole limbs of it count as an exponent. The other `up`
        // bits are put into the numerator, or else 64 - up bits into the denominator, whichever
        // makes the products shorter. A denominator counts twice, because the sum and
        // the product of the denominators are both multiplied by it.
        const double ofUpper = limbsOf(upper + static_cast<double>(up)) + 2 * limbsOf(lower);
        const double ofLower = limbsOf(upper) + 2 * limbsOf(lower + 64 - static_cast<double>(up));
        const bool raises = up == 0 || ofUpper <= ofLower;
        limbs = (scale - up) / 64 + (raises ? 0 : 1);
        failed = a.failed || b.failed || c.failed ||
                 !SetInteger(argument.z, ofZ - (raises ? up : 0), z) ||
                 !SetInteger(argument.over, ofOver - (raises ? 0 : 64 - up), over);
    }

    /// Sets the k-th numerator and denominator. Returns the sign of their quotient.
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

/// The sum of the magnitudes of the terms, and the sum of (k+1) times the k-th of them, both in
/// plain arithmetic. The error of the sum of many digits is estimated from them.
struct Magnitudes {
    double term = 1;
    double exponent = 0;  // the term is to be multiplied by 2^exponent
    double sum = 1;
    double slopes = 1;
    double common = 0;  // both sums are to be multiplied by 2^common

    void Take(const Factors& factors, int k) {
        constexpr double kFar = 300;  // powers of two, chosen: products with one ratio stay normal
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

/// The term and the sums so far, without the division by the denominator. With u = 2^-kBits, each
/// step cuts off at most 3 u times the greatest sum or term so far, and the k-th term itself is off
/// by at most k u times its size. For K terms the error therefore is at most 4 K u times the sum of
/// their magnitudes. It is a little more for the slope.
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

    /// above / denominator after k steps. `error` is the logarithm to base 2 of a bound of the
    /// error of the quotient that `above` causes. The part that the denominator causes is added.
    [[nodiscard]] Bounded<limbs> Quotient(const LimbNumber<limbs>& above, double error,
                                          int k) const {
        Bounded<limbs> result = {Divide(WideOf<limbs>(above), WideOf<limbs>(denominator)), error};
        // 2, a factor of 4: the denominator is off by k u, as the term is, and the division rounds
        const double ofBelow =
            SizeOf(result.value) + std::log2(k + 1.0) + 2 - LimbNumber<below>::kBits;
        result.error = std::max(error, ofBelow) + 1;  // 1: the sum of two is twice the greater
        return result;
    }

    /// The logarithm to base 2 of the magnitude of the value, to about 1.
    [[nodiscard]] double Size() const {
        if (value.sign == 0) return -INFINITY;
        const auto own = [](std::uint64_t top, std::int64_t exponent) {
            return std::bit_width(top) + 64.0 * static_cast<double>(exponent);
        };
        return own(value.digits[limbs - 1], value.exponent + std::int64_t{limbs}) -
               own(denominator.digits[below - 1], denominator.exponent + std::int64_t{below});
    }
};

/// Sums the series. It ends when a bound of the terms left out is below the error of rounding or
/// below 2^-wanted times the sum. The sum fails when that takes more than `most` terms, when c+k
/// becomes 0, or when the parameters have too many bits. The denominator has `below` limbs, and the
/// relative error of the result is at least that of the denominator.
template <std::size_t limbs, bool slopes, std::size_t below = limbs>
[[nodiscard]] WideSum<limbs> SumWide(const WideParameters& p, const WideArgument& argument,
                                     double wanted, double most = kMostWideTerms) {
    constexpr int kBetweenLooks = 4;    // chosen: a look takes logarithms, three more terms do not
    constexpr double kSmall = 0x1p-60;  // no value is wanted with fewer bits
    constexpr double kRoundings = 3;    // 8, as a logarithm: twice the 4 K u of RunningSum
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
    const double error = std::max(rounding, rest) + 1;  // 1: the sum of two is twice the greater
    return {sum.Quotient(sum.value, error, k), sum.Quotient(sum.slope, error, k),
            !std::isfinite(error)};
}

}  // namespace kalvex::specfun
