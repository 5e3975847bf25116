// Euler's integral (DLMF 15.6.1), with t = V/(1+V), V = e^v, w = 1-z:
//   F = Gamma(c) / (Gamma(b) Gamma(c-b)) times the integral of g(v) = e^L(v) over all v,
//   L = b v - (c-a) ln(1+V) - a ln(1+wV),
// summed by the trapezoidal rule. g is positive, so that nothing cancels, and its width falls with
// the square root of the parameters, so that some thirty values of g do for any parameters.
//
// The shape of g. With q = 1-zt, dt/dv = t(1-t):
//   L' = Q(t)/q,  Q(t) = b - (c+(b-a)z) t + (c-a) z t^2,  Q(0) = b,  Q(1) = -(c-b) w,
// so that L' is b at t = 0 and b-c at t = 1, and the quadratic Q has exactly one zero between: g
// rises up to its peak and falls from there on. Besides, L' is a linear function of t plus a
// multiple of 1/q, hence either convex or concave. So it is at least min(b, L'(t)) at all points
// left of one before the peak, and at most max(b-c, L'(t)) right of one behind it, which bounds
// what the sum leaves out by geometric series.
//
// The error of the rule. By Poisson's summation formula the sum with step h is off by at most
//   2 / (e^(2 pi d/h) - 1) times the integral of |g(v+id)| over all v, 0 < d < pi
// (Trefethen, Weideman 2014), and with S = sin(d/2)^2 and the hump H(V) = 4 V/(1+V)^2
//   |1 + V e^id| = (1+V) sqrt(1 - S H(V)),
// so that |g(v+id)| = e^M(v), M = L - (c-a)/2 ln(1 - S H(V)) - a/2 ln(1 - S H(wV)). The second
// derivative of M is that of the real part of L at v+id, at most
//   (|c-a| H(V) + |a| H(wV)) / (4 (1-S)),
// so that M between two nodes exceeds the greater of its values there by h^2/8 times that at most.
// Beyond the last nodes each of the two factors is at most what it is there or, before its hump, at
// the top of it.
#include "specfun/hypergeometric/euler_integral.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "numbers/quick_log_exp.h"
#include "specfun/hypergeometric/euler_rule.h"
#include "specfun/hypergeometric/log_gamma.h"

namespace kalvex::specfun {
namespace {

// e-foldings: e^-46 is 2^-66, which counts for nothing beside kGood, 2^-60.
constexpr double kNegligible = 46;
// On each side, chosen: they take 20 us at most, and a peak that is nearly Gaussian takes 15.
constexpr int kMostNodes = 110;

/// One value of g, by its peak.
struct Node {
    double v = 0;       // V
    double log = 0;     // of g
    double change = 0;  // L'
    double ofFirst = 0;
    double ofSecond = 0;  // what the factors are more at v+id
};

/// What the nodes add up to.
struct Sums {
    DoubleDouble value;
    double slope = 0;
    double offAxis = 0;  // a bound of the integral of |g(v+id)|, by h
    double leftOut = 0;  // a bound of the terms beyond the last nodes
    double most = 0;     // the greatest M
    bool failed = false;
};

/// What all nodes share.
struct Sampling {
    Integrand f = {};
    Rule rule;
    double peak = 0;
    DoubleDouble logOfFirst;   // ln(1+V) at the peak
    DoubleDouble logOfSecond;  // ln(1+wV)
};

/// Where a side of the sum has come to: V, and what ln(1+V) and ln(1+wV) are more than at the peak.
struct Position {
    DoubleDouble v;
    DoubleDouble first;
    DoubleDouble second;
};

// The longest step for which logarithms are added up by LogOfStep. Chosen: longer ones, up to 0.27,
// come with small parameters only, and there two logarithms at each node are taken instead.
constexpr double kShort = 0.25;

/// ln((sum+rise)/(sum-rise)), 2y + 2y^3/3 + 2y^5/5 + ... with y = rise/sum, |y| below
/// tanh(kShort/2). Three terms count in two doubles, 14 in all.
DoubleDouble LogOfStep(DoubleDouble rise, DoubleDouble sum) {
    // What is left out, y^28/29 by the first term, is below 2^-88, as |y| is below 1/8.
    constexpr int kLast = 27;
    const DoubleDouble y = LooseQuotient(rise, sum);
    const DoubleDouble square = LooseProduct(y, y);
    double tail = 0;
    for (int k = kLast; k > 5; k -= 2)
        tail = tail * square.high + 1.0 / k;
    const DoubleDouble inner = kFifth + tail * square.high;
    const DoubleDouble curve = LooseProduct(square, LooseSum(kThird, LooseProduct(square, inner)));
    const DoubleDouble twice = {2 * y.high, 2 * y.low};
    return LooseSum(twice, LooseProduct(twice, curve));
}

void Move(const Sampling& s, DoubleDouble ratio, Position& at) {
    const DoubleDouble before = at.v;
    at.v *= ratio;
    if (s.rule.h > kShort) {
        at.first = Log(at.v + 1.0) - s.logOfFirst;
        at.second = Log(s.f.w * at.v + 1.0) - s.logOfSecond;
        return;
    }
    const DoubleDouble rise = at.v - before;
    const DoubleDouble sum = LooseSum(at.v, before);
    at.first = LooseSum(at.first, LogOfStep(rise, sum + 2.0));
    at.second = LooseSum(at.second, LogOfStep(rise * s.f.w, sum * s.f.w + 2.0));
}

Node NodeAt(const Sampling& s, const Position& at, double shift, DoubleDouble& log) {
    const Integrand& f = s.f;
    const double v = at.v.high;
    const double second = f.w.high * v;
    log = f.b * shift - f.fromA * at.first - f.a * at.second;
    const double t = v / (1 + v);
    const double change = f.b.high / (1 + v) - f.fromB.high * t + f.a.high * f.z * t / (1 + second);
    return {v, log.high, change, RiseOf(f.fromA.high, Hump(v), s.rule.square),
            RiseOf(f.a.high, Hump(second), s.rule.square)};
}

void AddTerm(const Sampling& s, double v, DoubleDouble log, Sums& sums) {
    // e^-700 by the peak counts for nothing, and from e^-708 on doubles are denormal.
    constexpr double kVanishing = -700;
    if (log.high < kVanishing) return;
    int exponent = 0;
    const DoubleDouble fraction = QuickExp(log, exponent);
    const DoubleDouble g = Scale(fraction, exponent);
    sums.value += g;
    sums.slope += g.high * s.f.a.high * s.f.z * v / (1 + s.f.w.high * v);
}

/// The integral of |g(v+id)| between two nodes.
void AddOffAxis(const Sampling& s, const Node& before, const Node& node, Sums& sums) {
    const auto hump = [&](double scale) {
        const double first = scale * before.v;
        const double second = scale * node.v;
        // the top of the hump, 1, is at V = 1
        return (first - 1) * (second - 1) < 0 ? 1 : std::max(Hump(first), Hump(second));
    };
    const double bend =
        (std::fabs(s.f.fromA.high) * hump(1) + std::fabs(s.f.a.high) * hump(s.f.w.high)) /
        (4 * (1 - s.rule.square));
    const double most = std::max(before.log + before.ofFirst + before.ofSecond,
                                 node.log + node.ofFirst + node.ofSecond) +
                        bend * s.rule.h * s.rule.h / 8;
    sums.most = std::max(sums.most, most);
    sums.offAxis += std::exp(most);
}

/// The greatest that a factor is more at v+id than at v beyond a node.
double MostBeyond(double exponent, double v, double here, bool rightwards, double square) {
    if (exponent <= 0) return 0;
    const bool isAhead = rightwards ? v < 1 : v > 1;
    return isAhead ? RiseOf(exponent, 1, square) : here;
}

/// Adds the terms on one side of the peak.
void AddSide(const Sampling& s, bool rightwards, DoubleDouble ratio, Sums& sums) {
    const Rule& rule = s.rule;
    Position at = {{s.peak, 0}, {}, {}};
    DoubleDouble log;
    Node before = NodeAt(s, at, 0, log);
    for (int j = 1; j <= kMostNodes; ++j) {
        Move(s, ratio, at);
        const Node node = NodeAt(s, at, rightwards ? j * rule.h : -j * rule.h, log);
        AddTerm(s, node.v, log, sums);
        AddOffAxis(s, before, node, sums);
        before = node;
        const double fall =
            rightwards ? std::min(s.f.fromB.high, -node.change) : std::min(s.f.b.high, node.change);
        if (!(fall > 0)) continue;
        const double rest = node.log - std::log(fall * rule.h);
        const double beyond =
            MostBeyond(s.f.fromA.high, node.v, node.ofFirst, rightwards, rule.square) +
            MostBeyond(s.f.a.high, s.f.w.high * node.v, node.ofSecond, rightwards, rule.square);
        if (rest > -kNegligible || rest + beyond > rule.gain - kNegligible) continue;
        sums.leftOut += std::exp(rest);
        sums.offAxis += std::exp(rest + beyond);
        return;
    }
    sums.failed = true;
}

Sums SumsOf(const Sampling& s) {
    Sums sums;
    AddTerm(s, s.peak, {0, 0}, sums);
    int exponent = 0;
    const DoubleDouble step = ExpScaled({s.rule.h, 0}, exponent);
    const DoubleDouble up = Scale(step, exponent);
    AddSide(s, false, 1 / up, sums);
    if (!sums.failed) AddSide(s, true, up, sums);
    return sums;
}

/// A bound of the error of the sum, relative to it: of the rule, of the terms left out, of the
/// logarithms and of the exponential. The factor of 2 is for the rounding of the bound itself.
double ErrorOf(const Sampling& s, const Sums& sums) {
    constexpr double kOfExponential = 0x1p-64;  // four times the 2^-66 measured of QuickExp
    // Of LogOfStep, by h^6: its terms in one double, (h/2)^6/7 and smaller, are off by 2^-61.8.
    constexpr double kOfDoubles = 0x1p-60;
    // Counted: eight times kPairError for its terms in two doubles and for adding them up.
    constexpr double kOfPairs = 0x1p-97;
    const double ofRule = 2 * sums.offAxis / std::expm1(s.rule.gain);
    const double h = s.rule.h;
    const double exponents = std::fabs(s.f.fromA.high) + std::fabs(s.f.a.high);
    // twice: e^x - 1 is at most 2x
    const double ofLogarithms =
        2 * kMostNodes * h * exponents * (kOfDoubles * h * h * h * h * h * h + kOfPairs);
    return 2 * (ofRule + sums.leftOut) / sums.value.high + ofLogarithms + kOfExponential;
}

/// The factor before the integral times g at its peak.
GammaProduct ScaleOf(const Sampling& s, const HypergeometricParameters& p) {
    GammaProduct scale;
    MultiplyByGamma(p.c, scale);
    DivideByGamma(s.f.b, scale);
    DivideByGamma(s.f.fromB, scale);
    MultiplyByPower(Log({s.peak, 0}), s.f.b, scale);
    MultiplyByPower(s.logOfFirst, -s.f.fromA, scale);
    MultiplyByPower(s.logOfSecond, -s.f.a, scale);
    return scale;
}

/// How far a number is from 0 and c, between them; else negative.
double DistanceFromEnds(DoubleDouble b, DoubleDouble c) {
    return std::min(b.high, (c - b).high);
}

/// Looks at the integral over b; its peak and the step of the rule. False where it is not suitable.
bool Prepare(const HypergeometricParameters& p, DoubleDouble z, DoubleDouble w, Sampling& s) {
    // Of the peak from 1, chosen: V, wV and their squares stay far within the range at all nodes.
    constexpr double kFarthest = 1e30;
    s.f = {p.a, p.b, p.c - p.a, p.c - p.b, w, z.high};
    s.peak = PeakOf(s.f);
    if (!(s.peak > 1 / kFarthest && s.peak < kFarthest)) return false;
    s.rule = RuleFor(s.f, s.peak, 0);
    // from node to node g falls by e^(-bh) or e^(-(c-b)h) at most
    const double slowest = DistanceFromEnds(p.b, p.c) * s.rule.h;
    if (slowest * kMostNodes < kNegligible) return false;
    s.logOfFirst = Log(DoubleDouble{s.peak, 0} + 1.0);
    s.logOfSecond = Log(w * s.peak + 1.0);
    return true;
}

/// The sum times the scale.
HypergeometricPoint PointOf(const Sampling& s, const Sums& sums, const GammaProduct& scale) {
    HypergeometricPoint point;
    const DoubleDouble power = ExpScaled(scale.log.value, point.exponent);
    const DoubleDouble factor = power * s.rule.h;
    point.value = sums.value * factor;
    point.slope = {sums.slope * factor.high, 0};
    // twice: e^x - 1 is at most 2x
    point.error = (ErrorOf(s, sums) + 2 * scale.log.error) * point.value.high;
    point.failed = !std::isfinite(point.error);
    return point;
}

}  // namespace

bool HasEulerIntegral(const HypergeometricParameters& p) {
    return DistanceFromEnds(p.a, p.c) > 0 || DistanceFromEnds(p.b, p.c) > 0;
}

// As |L''| is at most (|c-a| + |a|)/4, the integral of g is above e^-11 times its peak for
// parameters up to 2^30.
KALVEX_WITH_FMA
HypergeometricPoint ByEulerIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                    DoubleDouble w, double most) {
    constexpr double kGood = 0x1p-60;     // a quarter of kGoodEnough: the factor adds its error
    constexpr double kMostSize = 0x1p30;  // what gamma functions are known for; see above
    // no value: as this integral serves it not; as it is beyond the range, which ends the search
    constexpr HypergeometricPoint kFailure = {{}, {}, INFINITY, true};
    constexpr HypergeometricPoint kOverflow = {{}, {}, INFINITY, true, true};
    if (!(std::fabs(p.a.high) + std::fabs(p.b.high) + p.c.high < kMostSize)) return kFailure;
    HypergeometricParameters own = p;
    if (DistanceFromEnds(p.a, p.c) > DistanceFromEnds(p.b, p.c)) std::swap(own.a, own.b);
    Sampling s;
    if (!Prepare(own, z, w, s)) return kFailure;
    const GammaProduct scale = ScaleOf(s, own);
    if (scale.log.value.high > most) return kOverflow;
    Sums sums = SumsOf(s);
    if (!sums.failed && ErrorOf(s, sums) > kGood) {
        s.rule = RuleFor(s.f, s.peak, sums.most);
        sums = SumsOf(s);
    }
    return sums.failed ? kFailure : PointOf(s, sums, scale);
}

}  // namespace kalvex::specfun
