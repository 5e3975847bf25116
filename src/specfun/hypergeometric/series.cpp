// The power series of the Gauss hypergeometric function (DLMF 15.2.1). The ratio of neighbouring
// terms is formed with its rounding errors, and terms and sums are carried as a double and a
// correction: as good as twice the precision at half its price. What cancels is seen from the
// sum of magnitudes, from which the error is estimated. Terms that are small enough for it are
// added in plain arithmetic.
#include "specfun/hypergeometric/series.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {
namespace {

constexpr int kMostTerms = 2000;
constexpr double kUnit = 0x1p-102;  // of the error of one step
constexpr double kOverflowing = 1e305;
constexpr double kUnderflowing = 1e-270;  // of terms that may grow again
constexpr double kPlainError = 0x1p-50;   // of one term in one double, for each step so far

/// (a+k)(b+k) / ((c+k)(k+1)); the low part is not normalised.
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

/// How the terms fall from here on: each ratio of neighbours is at most `ratio`, and if `power` is
/// positive, the j-th at most 1 - power/j.
struct Decay {
    double ratio;
    double power = 0;

    /// Of a bound of the sum over k t(k) of the rest to next t(next).
    double Rest(double next) const {
        const double geometric = ratio < 1 ? 1 / ((1 - ratio) * (1 - ratio)) : INFINITY;
        return power > 3 ? std::min(geometric, next / (power - 2)) : geometric;
    }
};

/// Once all factors are positive: the quotients of two factors tend to 1 monotonically, and
/// (c+k)(k+1) - (a+k)(b+k) is linear in k, so that once it is positive and growing it stays so, and
/// k+1 times 1 less the ratio, a quotient of two linear functions, keeps between what it is and
/// what it tends to.
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

/// Neither settles nor ends within so many terms.
bool TooLong(const HypergeometricParameters& p, double settled, double most) {
    const auto ends = [most](DoubleDouble a) { return IsNegativeInteger(a) && a.high >= -most; };
    return settled > most && !ends(p.a) && !ends(p.b);
}

/// Whether terms that are about to underflow come back before they fall for good.
bool GrowsAgain(const HypergeometricParameters& p, double z, double k, double settled) {
    constexpr double kMuch = 460;
    constexpr double kFarthest = 4000;  // beyond it nothing is known
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

/// The terms after the k-th, which one double each is enough for.
void AddTail(const HypergeometricParameters& p, double z, double k, double term, double enough,
             Decay decay, HypergeometricPoint& sum) {
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
        if (std::fabs(term) * (k + 1) * decay.Rest(k + 1) <= enough) break;
    }
    sum.value += value;
    sum.slope += slope;
}

/// The terms of the series; returns the sum over k of their magnitudes times k+3, and keeps k in
/// `terms`.
double AddTerms(const HypergeometricParameters& p, DoubleDouble z, double tolerance, double settled,
                HypergeometricPoint& sum, int& terms) {
    DoubleDouble term = {1, 0};
    double magnitude = 3;
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
            sum.failed = false;
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
    sum.slopeError = (terms + 1) * magnitude * kUnit + 2 * enough;
    return sum;
}

double MeasuredLoss(const HypergeometricParameters& p, double z) {
    constexpr int kMost = 3000;
    constexpr double kNegligible = 1e-18;
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
