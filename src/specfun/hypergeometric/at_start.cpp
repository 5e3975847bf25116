// The function where the walks of shifts.cpp start. Next to z = 1 and with s = c-a-b
// between -1/2 and 1/2 the function is a combination of F(a,b;1-s;w), w = 1-z, and of the divided
// difference, between the exponents 0 and s, of Frobenius's series (DLMF 2.7.5, 15.10)
//   y(r) = sum over k of w^(k+r) (a+r)_k (b+r)_k / ((1+r)_k (1+r-s)_k),
// which tends to the logarithmic solution as s tends to 0. Both are matched at z = 3/4 with the
// series at 0, which alone serves up to some way beyond.
#include "specfun/hypergeometric/at_start.h"

#include <array>
#include <cmath>

#include "specfun/hypergeometric/series.h"

namespace kalvex::specfun {
namespace {

/// The two solutions at z = 1, at w; slopes are w times the derivative.
struct Solutions {
    DoubleDouble w;
    DoubleDouble power = {1, 0};  // of w
    DoubleDouble regular = {1, 0};
    DoubleDouble regularSlope = {};
    DoubleDouble other = {};
    DoubleDouble otherSlope = {};
};

struct Power {
    DoubleDouble value;     // w^s
    DoubleDouble quotient;  // (w^s - 1)/s
};

/// Either with all its digits: w^s may be small beside 1, or next to it.
Power PowerOf(DoubleDouble s, DoubleDouble logarithm) {
    const DoubleDouble exponent = s * logarithm;
    if (exponent.high == 0) return {{1, 0}, logarithm};
    if (std::fabs(exponent.high) < 1) {  // what ExpMinusOne takes
        const DoubleDouble rise = ExpMinusOne(exponent);
        return {rise + 1.0, rise / s};
    }
    const DoubleDouble power = Exp(exponent);
    return {power, (power - 1.0) / s};
}

/// Adds the terms of k = next.
void AddTerms(DoubleDouble term, DoubleDouble difference, double next, Solutions& at) {
    at.power = LooseProduct(at.power, at.w);
    const DoubleDouble ofRegular = LooseProduct(at.power, term);
    const DoubleDouble ofOther = LooseProduct(at.power, difference);
    at.regular = QuickAdd(at.regular, ofRegular);
    at.other = QuickAdd(at.other, ofOther);
    at.regularSlope = QuickAdd(at.regularSlope, ofRegular * next);
    at.otherSlope = QuickAdd(at.otherSlope, ofOther * next);
}

/// From the divided differences to the solution.
void TakePower(DoubleDouble s, Solutions& at) {
    // y(s) = w^s (regular + s other'), other = (y(s) - y(0)) / s
    const auto [power, quotient] = PowerOf(s, Log(at.w));
    const DoubleDouble upper = at.regular + s * at.other;
    at.other = power * at.other + quotient * at.regular;
    at.otherSlope = power * at.otherSlope + quotient * at.regularSlope + power * upper;
}

/// The coefficients of the two series go on as
///   term' = ofLower term,  difference' = ofUpper difference + step term.
struct Growth {
    DoubleDouble ofLower;
    DoubleDouble ofUpper;
    DoubleDouble step;
};

Growth GrowthAfter(const HypergeometricParameters& p, DoubleDouble s, DoubleDouble sum, double k) {
    const double next = k + 1;
    const DoubleDouble above = s + next;
    const DoubleDouble below = next - s;
    const DoubleDouble numerator = LooseProduct(p.a + k, p.b + k);
    const DoubleDouble ratio = Reciprocal(LooseProduct(below * next, above));
    // (a+s+k)(b+s+k) = numerator + s (a+b+2k+s)
    const DoubleDouble rise = sum + 2 * k + s;
    const DoubleDouble upper = numerator + LooseProduct(s, rise);
    const DoubleDouble step = LooseProduct(rise, below) - LooseProduct({2, 0}, numerator);
    return {LooseProduct(LooseProduct(numerator, above), ratio),
            LooseProduct(LooseProduct(upper, below), ratio), LooseProduct(step, ratio)};
}

/// The same in plain arithmetic.
struct PlainGrowth {
    double ofLower;
    double ofUpper;
    double step;
};

PlainGrowth PlainGrowthAfter(const HypergeometricParameters& p, double s, double k) {
    const double next = k + 1;
    const double numerator = (p.a.high + k) * (p.b.high + k);
    const double ratio = 1 / ((next - s) * next * (next + s));
    const double rise = p.a.high + p.b.high + 2 * k + s;
    return {numerator * (next + s) * ratio, (numerator + s * rise) * (next - s) * ratio,
            (rise * (next - s) - 2 * numerator) * ratio};
}

/// Adds the terms from the k-th on, which are small enough for plain arithmetic.
void AddTails(const HypergeometricParameters& p, double s, double k, double term, double difference,
              double tolerance, std::array<Solutions, 2>& both) {
    // Never reached: w is at most 1/4 and the parameters are next to 0, so that terms below 2^-100
    // take some 60.
    constexpr double kMostTerms = 400;
    struct Tail {
        double power;
        double regular = 0;
        double regularSlope = 0;
        double other = 0;
        double otherSlope = 0;
    };
    std::array<Tail, 2> tails = {Tail{both[0].power.high}, Tail{both[1].power.high}};
    for (; k < kMostTerms; k += 1) {
        const PlainGrowth growth = PlainGrowthAfter(p, s, k);
        difference = growth.ofUpper * difference + growth.step * term;
        term *= growth.ofLower;
        for (std::size_t i = 0; i < tails.size(); ++i) {
            Tail& tail = tails[i];
            tail.power *= both[i].w.high;
            tail.regular += tail.power * term;
            tail.other += tail.power * difference;
            tail.regularSlope += tail.power * term * (k + 1);
            tail.otherSlope += tail.power * difference * (k + 1);
        }
        const double size = std::fabs(term) + std::fabs(difference);
        if ((k + 1) * tails[0].power * size < tolerance) break;
    }
    for (std::size_t i = 0; i < tails.size(); ++i) {
        both[i].regular += tails[i].regular;
        both[i].other += tails[i].other;
        both[i].regularSlope += tails[i].regularSlope;
        both[i].otherSlope += tails[i].otherSlope;
    }
}

/// At two points, the one farther from z = 1 first.
std::array<Solutions, 2> SolutionsAt(const HypergeometricParameters& p, DoubleDouble farther,
                                     DoubleDouble nearer, double tolerance) {
    constexpr double kPlain = 0x1p-48;  // of a term in plain arithmetic: 32 roundings of 2^-53
    constexpr int kMostTerms = 400;     // never reached: see AddTails
    const DoubleDouble s = p.c - p.a - p.b;
    const DoubleDouble sum = p.a + p.b;
    std::array<Solutions, 2> both = {Solutions{farther}, Solutions{nearer}};
    DoubleDouble term = {1, 0};
    DoubleDouble difference = {};
    for (int k = 0; k < kMostTerms; ++k) {
        const double size = std::fabs(term.high) + std::fabs(difference.high);
        if (k * both[0].power.high * size * kPlain < tolerance && k > 0) {
            AddTails(p, s.high, k, term.high, difference.high, tolerance, both);
            break;
        }
        const Growth growth = GrowthAfter(p, s, sum, k);
        difference = SumOfProducts(difference, growth.ofUpper, term, growth.step);
        term = LooseProduct(term, growth.ofLower);
        for (Solutions& at : both)
            AddTerms(term, difference, k + 1.0, at);
    }
    for (Solutions& at : both)
        TakePower(s, at);
    return both;
}

double Size(DoubleDouble a) {
    return std::fabs(a.high);
}

/// The function as a combination of the solutions at 1.
struct Combination {
    DoubleDouble first;
    DoubleDouble second;
    double firstError;
    double secondError;
};

/// From value and slope, w d/dw, at the point of the solutions; all series are off by `unit` times
/// 1 and themselves. Cramer's rule; the errors are those of its products and of what is put in,
/// which is why `unit` counts twice.
Combination Matched(const HypergeometricPoint& at, const Solutions& there, double unit) {
    const DoubleDouble determinant =
        there.regular * there.otherSlope - there.other * there.regularSlope;
    Combination found;
    found.first = (at.value * there.otherSlope - there.other * at.slope) / determinant;
    found.second = (there.regular * at.slope - there.regularSlope * at.value) / determinant;
    const double regular = 1 + Size(there.regular);
    const double regularSlope = 1 + Size(there.regularSlope);
    const double other = 1 + Size(there.other);
    const double otherSlope = 1 + Size(there.otherSlope);
    const double value = at.error + 2 * unit * Size(at.value);
    const double slope = at.slopeError + 2 * unit * Size(at.slope);
    const double size = Size(determinant);
    const double ofAll = 2 * unit * (regular * otherSlope + other * regularSlope) / size;
    found.firstError = (value * otherSlope + slope * other) / size + ofAll * Size(found.first);
    found.secondError =
        (value * regularSlope + slope * regular) / size + ofAll * Size(found.second);
    return found;
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint AtStart(const HypergeometricParameters& p, const Place& place,
                            double tolerance) {
    // Chosen: up to 0.85 one longer series in z costs less than the three of a match.
    constexpr double kFarthest = 0.85;
    // Chosen: at 3/4 the series in z and that in w, which falls like 1/4, are both short.
    constexpr double kMeeting = 0.75;
    // Counted, not proved: four times kPairError for logarithm, exponential and coefficients.
    constexpr double kOfSeries = 0x1p-98;
    if (place.z.high <= kFarthest || IsNegativeInteger(p.a)) {
        HypergeometricPoint start = SumHypergeometric(p, place.z, tolerance);
        start.error += tolerance * Size(start.slope);
        return start;
    }
    HypergeometricPoint start = SumHypergeometric(p, {kMeeting, 0}, tolerance);
    if (start.failed) return start;
    start.error += tolerance * Size(start.slope);
    const auto [there, at] = SolutionsAt(p, {1 - kMeeting, 0}, place.w, tolerance);
    start.slope = start.slope * (kMeeting - 1) / kMeeting;  // w d/dw
    // twice the tolerance: what is left out, and the rounding of the tails in plain arithmetic
    const double unit = kOfSeries + 2 * tolerance;
    const Combination of = Matched(start, there, unit);
    start.value = of.first * at.regular + of.second * at.other;
    start.slope = of.first * at.regularSlope + of.second * at.otherSlope;
    start.slope = -(start.slope * place.odds);
    // twice the unit: the series, and the products with them
    const double first = of.firstError + 2 * unit * Size(of.first);
    const double second = of.secondError + 2 * unit * Size(of.second);
    start.error = first * (1 + Size(at.regular)) + second * (1 + Size(at.other));
    start.slopeError = place.odds.high *
                       (first * (1 + Size(at.regularSlope)) + second * (1 + Size(at.otherSlope)));
    return start;
}

}  // namespace kalvex::specfun
