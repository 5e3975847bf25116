// The integral along a loop from t = 0 around t = 1 (DLMF 15.6.2), with W = 1 - 1/t, w = 1-z:
//   F = Gamma(c) Gamma(b-c+1) / Gamma(b) times (1/pi) Im of the integral of
//   f(W) = W^(c-b-1) (w-W)^-a (1-W)^(a-c)
// along a path in the upper half-plane from a point between 0 and w, or from w if a < 0, to
// infinity, where f falls like W^(-b-1). b is positive and c-b negative; 0 is a pole, and w and 1
// are poles or zeros. c may be negative.
//
// f' vanishes at two points, the saddle points, which are real or conjugate:
//   - Conjugate: the path leads from w through the upper one to infinity. The function swings.
//   - Real, one of them between 0 and w: the path crosses the axis there. The function is positive.
//   - Real, on both sides of 1, where f vanishes: the path takes the whole axis from w on.
//   - Real, both on the same interval, from w to 1, beyond 1 or below 0. From the pole at its end,
//   1 or 0, |f|
//     falls to the one, `low`, rises to the other, `high`, and falls to the zero at w or infinity.
//     The path takes the axis between the zero and `low`, over `high`. It leaves the axis at `low`
//     to infinity, or comes to it from w. On the axis f is |f| e^(i phi).
// Through each saddle point goes a straight line in the direction of the steepest descent, on which
// the trapezoidal rule is used (line_sum.cpp). Off the axis its ends are joined to those of the
// path by the steepest descent. That on the axis ends before `low`; so the half line from there
// counts with the part of it that is real by its own phase only, and the rest is an error, as is
// what the line on the axis leaves out.
#include "specfun/hypergeometric/loop_integral.h"

#include <algorithm>
#include <cmath>

#include "numbers/extended.h"
#include "specfun/hypergeometric/line_sum.h"
#include "specfun/hypergeometric/scaled_point.h"

namespace kalvex::specfun {
namespace {

constexpr PlainComplex kUp = {0, 1};  // i: from the axis straight into the upper half-plane

/// What all parts of the function share.
struct Loop {
    LoopIntegrand f;
    HypergeometricParameters p;
    double slopeFactor;  // az: the slope is the integral of f az/(w-W)
};

/// ln f at a point of the upper half-plane or ln |f| on the axis; the error is a bound.
struct LogAt {
    ComplexPair value;
    double error = 0;
};

LogAt LogOfIntegrand(const LoopIntegrand& f, PlainComplex at) {
    // LogOf is off by 2^-91.9 at most, Log by less, and the products and sums by some 2^-100.
    constexpr double kUnit = 0x1p-91;
    const ComplexPair exact = {{at.real(), 0}, {at.imag(), 0}};
    LogAt log;
    for (std::size_t k = 0; k < kFactors; ++k) {
        const ComplexPair factor = FactorAt(f, k, exact);
        const bool isReal = at.imag() == 0;
        const DoubleDouble size = factor.real.high < 0 ? -factor.real : factor.real;
        const ComplexPair own = isReal ? ComplexPair{Log(size), {}} : LogOf(factor);
        log.value = log.value + own * f.exponents[k];
        log.error += kUnit * std::fabs(f.exponents[k].high) * (1 + std::fabs(own.real.high));
    }
    return log;
}

/// The factor before the integral times a part of it, by |f| at the start of its line.
HypergeometricPoint PointOf(const Loop& loop, const LogAt& log, DoubleDouble value, double slope,
                            double error) {
    HypergeometricPoint point;
    point.value = value / kPi;
    point.slope = {slope * loop.slopeFactor / kPi.high, 0};
    point.error = error / kPi.high;
    point.failed = !std::isfinite(error);
    GammaProduct scale;
    MultiplyByGamma(loop.p.c, scale);
    MultiplyByGamma(loop.p.b - loop.p.c + 1, scale);
    DivideByGamma(loop.p.b, scale);
    MultiplyByPower({1, 0}, log.value.real, scale);
    scale.log.error += log.error;
    return Times(scale, point);
}

/// Through the upper one of two conjugate saddle points.
HypergeometricPoint Swinging(const Loop& loop, PlainComplex saddle) {
    const LoopIntegrand& f = loop.f;
    PlainComplex direction = kUp / std::sqrt(SecondDerivative(f, saddle));
    direction /= std::abs(direction);
    const PlainComplex fromZero = saddle - f.roots[1].high;
    if ((direction * std::conj(fromZero)).real() < 0) direction = -direction;
    const Line line = LineThrough(f, saddle, direction);
    LineSum sum;
    AddStart(f, line, 1, sum);
    AddSide(f, line, 1, {PathEnd::kInfinity}, sum);
    if (!sum.failed) AddSide(f, line, -1, {PathEnd::kZero}, sum);
    if (sum.failed) return kFailedPoint;
    const LogAt log = LogOfIntegrand(f, saddle);
    const CosineSine turn = CosineSineOf(log.value.imaginary);
    const ComplexPair weight = ComplexPair{turn.cosine, turn.sine} *
                               ComplexPair{{line.step.real(), 0}, {line.step.imag(), 0}};
    const ComplexPair value = sum.value * weight;
    // the phase is off by the error of the logarithm, and by that of cosine and sine, 2^-61 each
    constexpr double kOfPhase = 0x1p-60;
    const double error = sum.error + (2 * log.error + kOfPhase) * sum.sizes;
    return PointOf(loop, log, value.imaginary, (sum.slope * Plain(weight)).imag(),
                   error * std::abs(line.step));
}

/// The half line from a point of the axis upwards, the part that is real by its own phase.
HypergeometricPoint Upwards(const Loop& loop, double low, PathEnd end, DoubleDouble factor) {
    const LoopIntegrand& f = loop.f;
    const Line line = LineThrough(f, low, kUp);
    LineSum sum;
    AddStart(f, line, 0.5, sum);  // the half line has half of its first node
    AddSide(f, line, 1, {end}, sum);
    if (sum.failed) return kFailedPoint;
    const DoubleDouble weight = factor * line.step.imag();
    return PointOf(loop, LogOfIntegrand(f, low), sum.value.real * weight,
                   sum.slope.real() * weight.high, sum.error * std::fabs(weight.high));
}

/// A part of the path along the axis over a saddle point, where |f| is largest.
struct OnAxis {
    double saddle;
    PathEnd end;             // where |f| falls to on one side
    double barrier;          // up to where it falls on the other side
    DoubleDouble halfTurns;  // phi / pi
    double sign;             // of the direction of the path
    double leftOut = 0;      // of the integral of |f|: a bound, by f at the saddle point
};

HypergeometricPoint Along(const Loop& loop, const OnAxis& part) {
    constexpr double kOfTurn = 0x1p-59;  // of the sine, by itself, as in log_gamma.cpp
    const LoopIntegrand& f = loop.f;
    const Line line = LineThrough(f, part.saddle, 1);
    const double away = part.barrier < part.saddle ? 1 : -1;
    LineSum sum;
    AddStart(f, line, 1, sum);
    AddSide(f, line, away, {part.end}, sum);
    if (!sum.failed) AddSide(f, line, -away, {part.end, part.barrier}, sum);
    if (sum.failed) return kFailedPoint;
    const DoubleDouble sine = CosineSinePi(part.halfTurns).sine;
    const DoubleDouble weight = sine * (part.sign * line.step.real());
    const double error = (sum.error + kOfTurn * sum.sizes) * std::fabs(weight.high) +
                         part.leftOut * std::fabs(sine.high);
    return PointOf(loop, LogOfIntegrand(f, part.saddle), sum.value.real * weight,
                   sum.slope.real() * weight.high, error);
}

/// Along the axis over the saddle point of `part`, and off the axis at its barrier, to or from an
/// end of the path.
HypergeometricPoint OverAxis(const Loop& loop, OnAxis part, PathEnd end, double sign) {
    const LoopIntegrand& f = loop.f;
    const CosineSine turn = CosineSinePi(part.halfTurns);
    const HypergeometricPoint offAxis = Upwards(loop, part.barrier, end, turn.cosine * sign);
    if (offAxis.failed || turn.sine.high == 0) return offAxis;
    const Line half = LineThrough(f, part.barrier, kUp);
    const double by = LogSize(f, part.saddle);
    // |f| is below twice its value there up to the next node
    part.leftOut = 2 * std::abs(half.step) * std::exp(half.logAtStart - by) +
                   BoundOfTail(f, by, half.start + half.step, end);
    return Sum(Along(loop, part), offAxis);
}

HypergeometricPoint AtRealSaddles(const Loop& loop, double lower, double upper) {
    const LoopIntegrand& f = loop.f;
    const double w = f.roots[1].high;
    const auto isBetween = [w](double s) { return s > 0 && s < w; };
    if (isBetween(lower)) return Upwards(loop, lower, PathEnd::kInfinity, {1, 0});
    if (isBetween(upper)) return Upwards(loop, upper, PathEnd::kInfinity, {1, 0});
    const DoubleDouble betweenZeros = -f.exponents[1];
    const DoubleDouble beyondOne = betweenZeros - f.exponents[2];
    if (lower > 1) {
        return OverAxis(loop, {upper, PathEnd::kInfinity, lower, beyondOne, 1}, PathEnd::kZero, -1);
    }
    if (upper < 0) {
        return OverAxis(loop, {lower, PathEnd::kInfinity, upper, f.exponents[0], -1},
                        PathEnd::kZero, -1);
    }
    if (!(lower > w)) return kFailedPoint;
    if (upper > 1) {
        return Sum(Along(loop, {lower, PathEnd::kZero, 1, betweenZeros, 1}),
                   Along(loop, {upper, PathEnd::kInfinity, 1, beyondOne, 1}));
    }
    return OverAxis(loop, {lower, PathEnd::kZero, upper, betweenZeros, 1}, PathEnd::kInfinity, 1);
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint ByLoopIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                   DoubleDouble w) {
    Loop loop;
    loop.p = p;
    loop.f = {{p.c - p.b - 1, -p.a, p.a - p.c}, {DoubleDouble{0, 0}, w, DoubleDouble{1, 0}}};
    loop.slopeFactor = p.a.high * z.high;
    // (ln f)' = 0 is the quadratic equation lead W^2 - 2 lead half W + lead product = 0
    const auto [ofPole, ofZero, ofOne] = loop.f.exponents;
    const double lead = -(p.b.high + 1);
    const double middle = ofPole.high * (1 + w.high) + ofOne.high * w.high + ofZero.high;
    const double half = middle / (2 * lead);
    const double product = ofPole.high * w.high / lead;
    const double rest = half * half - product;
    if (rest < 0) return Swinging(loop, {half, std::sqrt(-rest)});
    const double larger = half + std::copysign(std::sqrt(rest), half);
    const double other = product / larger;
    return AtRealSaddles(loop, std::min(larger, other), std::max(larger, other));
}

}  // namespace kalvex::specfun
