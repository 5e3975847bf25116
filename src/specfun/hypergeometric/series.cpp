// The power series of the Gauss hypergeometric function (DLMF 15.2.1). The ratio of neighbouring
// terms is formed with its rounding errors, and terms and sums are carried as a double and a
// correction: as good as twice the precision at half its price. The bound of the error follows
// from the sum of the magnitudes of the terms, so that it tells what cancels. Terms that are small
// enough for it are added in plain arithmetic.
#include "specfun/hypergeometric/series.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {
namespace {

constexpr int kMostTerms = 2000;    // chosen: 14 us; forms are tried if 1200 are foreseen
constexpr double kUnit = 0x1p-102;  // bounds what one step adds to the relative error: 16 u^2
// Magnitudes are counted k+3 times. So the sums are within the range if these are. Chosen: it ends
// at 1.8e308, so that the next term may be a thousand times as large.
constexpr double kOverflowing = 1e305;
// Below it the error of a product of two doubles, 2^-106 or 10^-32 of it, comes next to denormal
// numbers, which begin at 10^-308.
constexpr double kUnderflowing = 1e-270;

/// a b / (c next): the ratio of two neighbouring terms, where a, b and c are a+k, b+k and c+k, and
/// next is k+1. It is LooseQuotient of two products but for the normalisation of each result, which
/// only the sum of the terms needs. The error counts into kUnit.
DoubleDouble Ratio(DoubleDouble a, DoubleDouble b, DoubleDouble c, double next) {
    const double numerator = a.high * b.high;
    const double numeratorLow =
        std::fma(a.high, b.high, -numerator) + (a.high * b.low + a.low * b.high);
    const double denominator = c.high * next;
    const double denominatorLow = std::fma(c.high, next, -denominator) + c.low * next;
    const double inverse = 1 / denominator;
    const double quotient = numerator * inverse;
    const double rest = std::fma(-quotient, denominator, numerator);
    return {quotient, (rest + (numeratorLow - quotient * denominatorLow)) * inverse};
}

bool IsZero(DoubleDouble a) {
    return a.high + a.low == 0;
}

/// How the terms fall from here on. Each ratio of neighbours is at most `ratio`, and, if `power` is
/// positive, that of the terms j and j-1 is at most 1 - power/j.
struct Decay {
    double ratio;
    double power = 0;

    /// A bound of the sum of j |t(j)| over all j from `next` on, divided by next |t(next)|.
    double Rest(double next) const {
        const double geometric = ratio < 1 ? 1 / ((1 - ratio) * (1 - ratio)) : INFINITY;
        // Chosen: next/(power-2) is infinite at 2 and too large to serve next to it.
        constexpr double kLeastPower = 3;
        return power > kLeastPower ? std::min(geometric, next / (power - 2)) : geometric;
    }
};

/// The decay after the term with the factors a, b, c and next, all of them positive.
///
/// (c+k)(k+1) - (a+k)(b+k) is linear in k. Where it is positive and grows it stays positive, so
/// that the quotient of the factors stays below 1. Next times (1 - quotient) is a quotient of two
/// linear functions of k, which lies between its value here and its limit: that is the power. In
/// all other cases the quotient is bounded as a product of two quotients such as (a+k)/(c+k), each
/// of which tends to 1 monotonically.
Decay DecayAfter(double a, double b, double c, double next, double z) {
    const double denominator = c * next;
    const double excess = denominator - a * b;
    if (excess > 0 && a + b < c + next) {
        return {z, std::min(next * excess / denominator, c + next - a - b)};
    }
    const double straight = std::max(1.0, a / c) * std::max(1.0, b / next);
    const double crossed = std::max(1.0, b / c) * std::max(1.0, a / next);
    return {z * std::min(straight, crossed)};
}

/// The term from which on all factors are positive.
double Settled(const HypergeometricParameters& p) {
    return -std::min({p.a.high, p.b.high, p.c.high});
}

/// Whether the series does not end within `most` terms and not all factors are positive by then.
bool TooLong(const HypergeometricParameters& p, double settled, double most) {
    const auto ends = [most](DoubleDouble a) { return IsNegativeInteger(a) && a.high >= -most; };
    return settled > most && !ends(p.a) && !ends(p.b);
}

/// Whether terms that have become too small to be carried on may grow to a size that counts before
/// they fall for good.
bool GrowsAgain(const HypergeometricParameters& p, double z, double k, double settled) {
    constexpr double kMuch = 460;       // e^460 is 10^200; 10^-270 times that does not count
    constexpr double kFarthest = 4000;  // chosen: twice kMostTerms; beyond, the answer is yes
    if (settled > kFarthest) return true;
    double logarithm = 0;
    double change = 0;
    for (; k <= settled || (change > 0 && k < kFarthest); k += 1) {
        const double numerator = (p.a.high + k) * (p.b.high + k) * z;
        if (numerator == 0) return false;
        change = std::log(std::fabs(numerator / ((p.c.high + k) * (k + 1))));
        logarithm += change;
        if (!(logarithm < kMuch)) return true;
    }
    return false;
}

/// Adds the terms after the k-th, which are small enough for plain arithmetic, until the rest is
/// below `enough`; the sum has failed if that takes too many.
void AddTail(const HypergeometricParameters& p, double z, double k, double term, double enough,
             Decay decay, HypergeometricPoint& sum) {
    // Forms are tried if 1200 terms are foreseen for an error of 2^-57; this is five times as many.
    constexpr int kMostOfTail = 6000;
    const double limit = std::fabs(z);
    double value = 0;
    double slope = 0;
    for (int i = 0; i < kMostOfTail; ++i, k += 1) {
        const double ratio = (p.a.high + k) * (p.b.high + k) / ((p.c.high + k) * (k + 1)) * z;
        term *= ratio;
        value += term;
        slope += term * (k + 1);
        decay.ratio = std::max(limit, std::fabs(ratio));
        const bool ends = term == 0 || std::fabs(term) * (k + 1) * decay.Rest(k + 1) <= enough;
        sum.failed = !ends;
        if (!sum.failed) break;
    }
    sum.value += value;
    sum.slope += slope;
}

/// Adds the terms of the series to `sum` and counts them in `terms`. Returns the sum over k of the
/// magnitude of the k-th term times k+3, from which the bound of the error follows: k steps have
/// led to that term, and three operations add it.
double AddTerms(const HypergeometricParameters& p, DoubleDouble z, double tolerance, double settled,
                HypergeometricPoint& sum, int& terms) {
    DoubleDouble term = {1, 0};
    double magnitude = 3;  // k+3 for the first term, 1
    for (int k = 0; k < kMostTerms; ++k) {
        const DoubleDouble a = p.a + k;
        const DoubleDouble b = p.b + k;
        const DoubleDouble c = p.c + k;
        if (IsZero(a) || IsZero(b)) {
            sum.failed = false;
            break;
        }
        sum.singular = IsZero(c);
        if (sum.singular) break;
        const double next = k + 1.0;
        terms = k + 1;
        term = LooseProduct(LooseProduct(term, z), Ratio(a, b, c, next));
        Accumulate(sum.value, term.high, term.low);
        const DoubleDouble weighted = TwoProduct(term.high, next);
        Accumulate(sum.slope, weighted.high, weighted.low + term.low * next);
        magnitude += std::fabs(term.high) * (next + 3);
        if (!(magnitude < kOverflowing)) break;
        const double enough = tolerance * (std::fabs(sum.value.high) + std::fabs(sum.slope.high));
        const double rest = std::fabs(term.high) * next * kPlainError;
        if (k <= settled && std::fabs(term.high) < kUnderflowing) {
            sum.failed = GrowsAgain(p, z.high, next, settled);
            break;
        }
        if (rest >= enough || k <= settled) continue;
        const Decay decay = DecayAfter(a.high, b.high, c.high, next, std::fabs(z.high));
        if (rest * decay.Rest(next) < enough) {
            AddTail(p, z.high, next, term.high, enough, decay, sum);
            break;
        }
    }
    return magnitude;
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint SumHypergeometric(const HypergeometricParameters& p, DoubleDouble z,
                                      double tolerance) {
    HypergeometricPoint sum = {{1, 0}, {}, 0, true};
    const double settled = Settled(p);
    if (TooLong(p, settled, kMostTerms)) return sum;
    int terms = 0;
    const double magnitude = AddTerms(p, z, tolerance, settled, sum, terms);
    sum.value = QuickTwoSum(sum.value.high, sum.value.low);
    sum.slope = QuickTwoSum(sum.slope.high, sum.slope.low);
    // what is left out is below `enough`, and so is the rounding of the tail in plain arithmetic
    const double enough = tolerance * (std::fabs(sum.value.high) + std::fabs(sum.slope.high));
    sum.error = magnitude * kUnit + 2 * enough;
    // the k-th term of the slope is k times that of the value
    sum.slopeError = (terms + 1) * magnitude * kUnit + 2 * enough;
    return sum;
}

double MeasuredLoss(const HypergeometricParameters& p, double z) {
    constexpr int kMost = 3000;            // chosen: forms are tried if 1200 are foreseen
    constexpr double kNegligible = 1e-18;  // chosen: 1/100 of 2^-53, the rounding of the sum
    const double settled = Settled(p);
    if (TooLong(p, settled, kMost)) return INFINITY;
    double term = 1;
    double sum = 1;
    double magnitude = 1;
    for (int k = 0; k < kMost; ++k) {
        const double numerator = (p.a.high + k) * (p.b.high + k) * z;
        if (numerator == 0) return std::log(magnitude / std::fabs(sum));
        const double ratio = numerator / ((p.c.high + k) * (k + 1.0));
        term *= ratio;
        sum += term;
        magnitude += std::fabs(term);
        if (!(magnitude < kOverflowing)) break;
        const bool settles = k > settled && std::fabs(ratio) < 1;
        if (settles && std::fabs(term) < kNegligible * magnitude) {
            return std::log(magnitude / std::fabs(sum));
        }
    }
    return INFINITY;
}

}  // namespace kalvex::specfun
