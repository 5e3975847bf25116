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

constexpr int kMostSteps = 2000;
constexpr int kMostTerms = 400;
constexpr double kTolerance = 0x1p-85;

struct StepCoefficients {
    DoubleDouble ofValue;   // h^2 / p
    DoubleDouble ofSlope;   // h (c - (a+b+1) x0) / p
    DoubleDouble ofDegree;  // h (1-2x0) / p
};

DoubleDouble DriftAt(const HypergeometricParameters& p, double x) {
    const DoubleDouble sum = Add(Add(p.a, p.b), 1.0);
    return Subtract(p.c, Multiply(sum, x));
}

/// The end of the step that starts at x.
double NextPoint(const HypergeometricParameters& p, double x, double to) {
    constexpr double kPhase = 10;
    const double room = std::min(std::fabs(x), 1 - x);
    const double weight = std::fabs(x) * (1 - x);
    const double swing =
        std::sqrt(std::fabs(p.a.high * p.b.high) / weight) + std::fabs(DriftAt(p, x).high) / weight;
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

/// Value and slope at x + h from those at x; slopes are h times the derivative here.
bool Step(const HypergeometricParameters& p, const StepCoefficients& s, DoubleDouble& value,
          DoubleDouble& slope) {
    DoubleDouble before = value;
    DoubleDouble now = slope;
    value = Add(value, now);
    for (int n = 0; n < kMostTerms; ++n) {
        const DoubleDouble first = Multiply(Multiply(Add(p.a, n), Add(p.b, n)), s.ofValue);
        const DoubleDouble second = Multiply(Add(Multiply(s.ofDegree, n), s.ofSlope), n + 1.0);
        const DoubleDouble sum = Subtract(Multiply(first, before), Multiply(second, now));
        before = now;
        now = Divide(sum, (n + 1.0) * (n + 2.0));
        value = Add(value, now);
        slope = Add(slope, Multiply(now, n + 2.0));
        const double size = (n + 2) * (std::fabs(before.high) + std::fabs(now.high));
        const double enough = kTolerance * (std::fabs(value.high) + std::fabs(slope.high));
        if (!(size > enough)) return std::isfinite(value.high);
    }
    return false;
}

}  // namespace

HypergeometricPoint FollowHypergeometric(const HypergeometricParameters& p,
                                         HypergeometricPoint start, double from, double to) {
    double x = from;
    for (int steps = 0; x != to; ++steps) {
        if (steps == kMostSteps) return {{}, {}, 0, true};
        const double end = NextPoint(p, x, to);
        const double h = end - x;  // exact: the points are within a factor of two
        const double share = std::fabs(h / x);
        DoubleDouble slope = Divide(Multiply(start.slope, h), x);
        const double size = std::fabs(start.value.high) + std::fabs(slope.high);
        if (!Step(p, CoefficientsAt(p, x, h), start.value, slope)) return {{}, {}, 0, true};
        start.slope = Divide(Multiply(slope, end), h);
        start.error += size * share * 0x1p-80;
        x = end;
    }
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
    constexpr int kTries = 40;
    double from = std::copysign(std::min(std::fabs(x), kFarthest), x);
    while (ExpectedLoss(p, from) > kBearable)
        from /= 2;
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
