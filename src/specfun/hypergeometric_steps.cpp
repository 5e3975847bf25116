// Taylor steps of the hypergeometric equation (DLMF 15.10.1)
//   x(1-x) F'' + (c - (a+b+1) x) F' - ab F = 0.
// About x0 the terms v(n) = F^(n)(x0) h^n / n! obey
//   (n+2)(n+1) p v(n+2) = (n+a)(n+b) h^2 v(n) - (n+1) (n (1-2x0) + c - (a+b+1) x0) h v(n+1),
// with p = x0 (1-x0). A step stays within half of the distance to the next singular point and
// within a few oscillations of the solution, so that little cancels. It serves where the power
// series at 0 cancels: there the function swings, and no other solution outgrows it.
#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric_parts.h"

namespace kalvex::specfun {
namespace {

constexpr int kMostSteps = 600;
constexpr double kPhase = 16;  // of the solution in one step
constexpr int kMostTerms = 250;
constexpr double kTolerance = 0x1p-80;

struct StepCoefficients {
    DoubleDouble ofValue;   // h^2 / p
    DoubleDouble ofSlope;   // h (c - (a+b+1) x0) / p
    DoubleDouble ofDegree;  // h (1-2x0) / p
};

DoubleDouble DriftAt(const HypergeometricParameters& p, double x) {
    const DoubleDouble sum = Add(Add(p.a, p.b), 1.0);
    return Subtract(p.c, Multiply(sum, x));
}

/// Bound of the logarithmic derivatives of the solutions.
double SwingAt(const HypergeometricParameters& p, double x) {
    const double weight = std::fabs(x) * (1 - x);
    return std::sqrt(std::fabs(p.a.high * p.b.high) / weight) +
           std::fabs(DriftAt(p, x).high) / weight;
}

/// The end of the step that starts at x.
double NextPoint(double x, double to, double swing) {
    const double room = std::min(std::fabs(x), 1 - x);
    const double step = std::min(room / 2, kPhase / swing);
    if (std::fabs(to - x) <= step * 1.1) return to;
    return to > x ? x + step : x - step;
}

StepCoefficients CoefficientsAt(const HypergeometricParameters& p, double x, double h) {
    const DoubleDouble weight = Multiply(TwoSum(1, -x), x);
    const DoubleDouble scaled = Divide({h, 0}, weight);
    return {Multiply(scaled, h), Multiply(scaled, DriftAt(p, x)),
            Multiply(scaled, TwoSum(1, -2 * x))};
}

/// A solution in plain arithmetic that starts at right angles to the one wanted. It shows how
/// much what was rounded has grown since.
struct Companion {
    double value;
    double slope;
};

/// h (n (1-2x0) + c - (a+b+1) x0) / p
DoubleDouble OfSlopeAt(const StepCoefficients& s, int n) {
    DoubleDouble sum = s.ofSlope;
    const DoubleDouble ofDegree = TwoProduct(s.ofDegree.high, n);
    Accumulate(sum, ofDegree.high, ofDegree.low + s.ofDegree.low * n);
    return sum;
}

DoubleDouble Inverse(double n) {
    const double high = 1 / n;
    return {high, std::fma(-high, n, 1) * high};
}

/// Values and slopes at x + h from those at x; slopes are h times the derivative here.
bool Step(const HypergeometricParameters& p, const StepCoefficients& s, DoubleDouble& value,
          DoubleDouble& slope, Companion& companion) {
    DoubleDouble before = value;
    DoubleDouble now = slope;
    double companionBefore = companion.value;
    double companionNow = companion.slope;
    Accumulate(value, now.high, now.low);
    companion.value += companionNow;
    DoubleDouble inverse = {1, 0};  // 1/(n+1)
    for (int n = 0; n < kMostTerms; ++n) {
        const double next = n + 2;
        const DoubleDouble factors = LooseProduct(PlusInteger(p.a, n), PlusInteger(p.b, n));
        const DoubleDouble first = LooseProduct(LooseProduct(factors, s.ofValue), inverse);
        const DoubleDouble second = OfSlopeAt(s, n);
        inverse = Inverse(next);
        DoubleDouble sum = LooseProduct(first, before);
        const DoubleDouble less = LooseProduct(second, now);
        Accumulate(sum, -less.high, -less.low);
        before = now;
        sum = LooseProduct(QuickTwoSum(sum.high, sum.low), inverse);
        now = QuickTwoSum(sum.high, sum.low);
        Accumulate(value, now.high, now.low);
        Accumulate(slope, now.high * next,
                   std::fma(now.high, next, -now.high * next) + now.low * next);
        const double companionNext =
            (first.high * companionBefore - second.high * companionNow) * inverse.high;
        companionBefore = companionNow;
        companionNow = companionNext;
        companion.value += companionNext;
        companion.slope += companionNext * next;
        const double size = next * (std::fabs(before.high) + std::fabs(now.high));
        const double enough = kTolerance * (std::fabs(value.high) + std::fabs(slope.high));
        if (!(size > enough)) break;
        if (n + 1 == kMostTerms) return false;
    }
    value = QuickTwoSum(value.high, value.low);
    slope = QuickTwoSum(slope.high, slope.low);
    return std::isfinite(value.high);
}

double Size(double value, double slope, double scale) {
    return std::fabs(value) + std::fabs(slope) / scale;
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint FollowHypergeometric(const HypergeometricParameters& p,
                                         HypergeometricPoint start, double from, double to) {
    constexpr double kStepError = 0x1p-78;
    const double phase = std::sqrt(std::fabs(p.a.high * p.b.high)) +
                         std::fabs(p.a.high + p.b.high) + std::fabs(p.c.high);
    if (!(phase < kMostSteps * kPhase)) return {{}, {}, 0, true};
    double x = from;
    double scale = 1 + SwingAt(p, x) * std::fabs(x);
    Companion companion = {start.slope.high / scale, -start.value.high * scale};
    double growth = start.error / Size(companion.value, companion.slope, scale);
    for (int steps = 0; x != to; ++steps) {
        const double swing = SwingAt(p, x);
        if (steps == kMostSteps) return {{}, {}, 0, true};
        const double size = Size(start.value.high, start.slope.high, scale);
        growth += size * kStepError / Size(companion.value, companion.slope, scale);
        const double end = NextPoint(x, to, swing);
        const double h = end - x;  // exact: the points are within a factor of two
        DoubleDouble slope = Divide(Multiply(start.slope, h), x);
        companion.slope *= h / x;
        if (!Step(p, CoefficientsAt(p, x, h), start.value, slope, companion)) {
            return {{}, {}, 0, true};
        }
        start.slope = Divide(Multiply(slope, end), h);
        companion.slope *= end / h;
        x = end;
        scale = 1 + SwingAt(p, x) * std::fabs(x);
    }
    start.error = growth * Size(companion.value, companion.slope, scale);
    return start;
}

double ExpectedLoss(const HypergeometricParameters& p, double z) {
    const double a = p.a.high;
    const double b = p.b.high;
    const double c = p.c.high;
    const bool oneSign = c > 0 && (a > 0) == (b > 0) && z > 0;
    if (oneSign) return 0;
    const double product = std::fabs(a * b * z);
    return std::min(2 * std::sqrt(product), product / std::max(std::fabs(c), 1.0));
}

HypergeometricPoint HypergeometricByParts(const HypergeometricParameters& p, double x) {
    constexpr double kFarthest = 0.5;
    constexpr double kBearable = 20;  // of the 50 that twice the precision leaves
    constexpr int kTries = 12;
    double from = std::copysign(std::min(std::fabs(x), kFarthest), x);
    for (int i = 0; i < kTries && ExpectedLoss(p, from) > kBearable; ++i) {
        if (MeasuredLoss(p, from) < kBearable) break;
        from /= 2;
    }
    for (int i = 0; i < kTries; ++i) {
        const HypergeometricPoint sum = SumHypergeometric(p, {from, 0}, 0x1p-100);
        const double scale = std::fabs(sum.value.high) + std::fabs(sum.slope.high);
        if (sum.singular) return sum;
        if (!sum.failed && sum.error <= 0x1p-72 * scale) {
            return FollowHypergeometric(p, sum, from, x);
        }
        from /= 2;
    }
    return {{}, {}, 0, true};
}

}  // namespace kalvex::specfun
