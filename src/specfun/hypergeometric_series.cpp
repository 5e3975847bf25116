// The power series of the Gauss hypergeometric function (DLMF 15.2.1). The ratio of neighbouring
// terms is formed with its rounding errors, and terms and sums are carried as a double and a
// correction: as good as twice the precision at half its price. What cancels is seen from the
// sum of magnitudes, from which the error is estimated. Terms that are small enough for it are
// added in plain arithmetic.
#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric_parts.h"

namespace kalvex::specfun {
namespace {

constexpr int kMostTerms = 6000;
constexpr double kUnit = 0x1p-102;  // of the error of one step
constexpr double kOverflowing = 1e305;
constexpr double kPlainError = 0x1p-50;  // of one term in one double, for each step so far

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

/// A bound of this and all later ratios of terms without z, once all factors are positive: the
/// quotients of two factors tend to 1 monotonically.
double GreatestRatio(double a, double b, double c, double next) {
    const double straight = std::max(1.0, a / c) * std::max(1.0, b / next);
    const double crossed = std::max(1.0, b / c) * std::max(1.0, a / next);
    return std::min(straight, crossed);
}

/// The term from which on all factors are positive.
double Settled(const HypergeometricParameters& p) {
    return -std::min({p.a.high, p.b.high, p.c.high});
}

/// Neither settles nor ends within so many terms.
bool TooLong(const HypergeometricParameters& p, double settled, double most) {
    const auto ends = [most](double a) { return a <= 0 && a >= -most && std::floor(a) == a; };
    return settled > most && !ends(p.a.high) && !ends(p.b.high);
}

/// The terms after the k-th, which one double each is enough for; they fall at least as `fall`.
void AddTail(const HypergeometricParameters& p, double z, double k, double term, double enough,
             HypergeometricPoint& sum) {
    const double limit = std::fabs(z);
    double value = 0;
    double slope = 0;
    for (int i = 0; i < kMostTerms; ++i, k += 1) {
        const double ratio = (p.a.high + k) * (p.b.high + k) / ((p.c.high + k) * (k + 1)) * z;
        term *= ratio;
        value += term;
        slope += term * (k + 1);
        const double fall = std::max(limit, std::fabs(ratio));
        if (std::fabs(term) * (k + 1) * fall <= enough * (1 - fall)) break;
    }
    sum.value = Add(sum.value, value);
    sum.slope = Add(sum.slope, slope);
}

}  // namespace

HypergeometricPoint SumHypergeometric(const HypergeometricParameters& p, DoubleDouble z,
                                      double tolerance) {
    HypergeometricPoint sum = {{1, 0}, {}, 0, true};
    DoubleDouble term = {1, 0};
    double magnitude = 3;
    const double settled = Settled(p);
    if (TooLong(p, settled, kMostTerms)) return sum;
    for (int k = 0; k < kMostTerms; ++k) {
        const DoubleDouble a = PlusInteger(p.a, k);
        const DoubleDouble b = PlusInteger(p.b, k);
        const DoubleDouble c = PlusInteger(p.c, k);
        if (IsZero(a) || IsZero(b)) {
            sum.failed = false;
            break;
        }
        sum.singular = IsZero(c);
        if (sum.singular) break;
        const double next = k + 1.0;
        term = LooseProduct(LooseProduct(term, z), Ratio(a, b, c, next));
        Accumulate(sum.value, term.high, term.low);
        const DoubleDouble weighted = TwoProduct(term.high, next);
        Accumulate(sum.slope, weighted.high, weighted.low + term.low * next);
        magnitude += std::fabs(term.high) * (next + 3);
        if (!(magnitude < kOverflowing)) break;
        const double enough = tolerance * (std::fabs(sum.value.high) + std::fabs(sum.slope.high));
        const double rest = std::fabs(term.high) * next * kPlainError;
        if (rest >= enough || k <= settled) continue;
        const double fall = std::fabs(z.high) * GreatestRatio(a.high, b.high, c.high, next);
        if (fall < 1 && rest * fall < enough * (1 - fall) * (1 - fall)) {
            AddTail(p, z.high, next, term.high, enough, sum);
            sum.failed = false;
            break;
        }
    }
    sum.value = QuickTwoSum(sum.value.high, sum.value.low);
    sum.slope = QuickTwoSum(sum.slope.high, sum.slope.low);
    sum.error = magnitude * kUnit + tolerance * std::fabs(sum.value.high);
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
        const double ratio = (p.a.high + k) * (p.b.high + k) / ((p.c.high + k) * (k + 1.0)) * z;
        term *= ratio;
        sum += term;
        magnitude += std::fabs(term);
        if (!(magnitude < kOverflowing)) break;
        const bool settles = k > settled && std::fabs(ratio) < 1;
        if (term == 0 || (settles && std::fabs(term) < kNegligible * magnitude)) {
            return std::log(magnitude / std::fabs(sum));
        }
    }
    return INFINITY;
}

}  // namespace kalvex::specfun
