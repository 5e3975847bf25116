// For c below 0 the function is a combination of a solution at z = 1 and of the other solution at
// z = 0, whose third parameters are positive (DLMF 15.10.18 solved for the function; s = c-a-b):
//   F = G F(a,b;1-s;w) / Gamma(1-s) - G Gamma(c-1) / (Gamma(a) Gamma(b)) z^(1-c) Y,
//   Y = F(a-c+1,b-c+1;2-c;z),  G = Gamma(a-c+1) Gamma(b-c+1) / Gamma(1-c).
// Either is of one sign, with Euler's integral or with a series of positive terms, unless one of
// its numerator parameters is below 0 and the other above its third one. What cancels between the
// two parts is seen from their sizes.
#include "specfun/hypergeometric/connection.h"

#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric/euler_integral.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/log_gamma.h"
#include "specfun/hypergeometric/series.h"

namespace kalvex::specfun {
namespace {

constexpr HypergeometricPoint kFailure = {{}, {}, INFINITY, true};
constexpr double kOutOfRange = 1e9;  // of logarithms

/// The product times a solution.
HypergeometricPoint Times(const GammaProduct& product, HypergeometricPoint point) {
    if (point.failed || product.failed || !(std::fabs(product.log.value.high) < kOutOfRange)) {
        return kFailure;
    }
    int exponent = 0;
    const DoubleDouble power = ExpScaled(product.log.value, exponent);
    const DoubleDouble factor = power * product.factor;
    const double size = std::fabs(factor.high);
    const double relative = 2 * product.log.error + product.ofFactor;
    point.error = size * (point.error + relative * std::fabs(point.value.high));
    point.value *= factor;
    point.slope *= factor;
    point.exponent += exponent;
    return point;
}

HypergeometricPoint Sum(const HypergeometricPoint& left, const HypergeometricPoint& right) {
    constexpr int kFar = 1000;
    if (left.failed || right.failed) return kFailure;
    const int exponent = std::max(left.exponent, right.exponent);
    HypergeometricPoint sum;
    sum.exponent = exponent;
    for (const HypergeometricPoint* part : {&left, &right}) {
        const int by = std::max(part->exponent - exponent, -kFar);
        sum.value += Scale(part->value, by);
        sum.slope += Scale(part->slope, by);
        sum.error += std::ldexp(part->error, by);
    }
    return sum;
}

/// The series, whose terms are all positive, unless it is long.
HypergeometricPoint BySeries(const HypergeometricParameters& p, DoubleDouble z) {
    constexpr double kMost = 1500;
    constexpr double kTolerance = 0x1p-62;
    if (!(CostOf(Form{p, {}}, z.high) < kMost)) return kFailure;
    return SumHypergeometric(p, z, kTolerance);
}

bool MayBeOneSigned(const HypergeometricParameters& p) {
    return HasEulerIntegral(p) || (p.a.high > 0) == (p.b.high > 0);
}

/// A solution with c above 0, if MayBeOneSigned.
HypergeometricPoint OneSigned(const HypergeometricParameters& p, DoubleDouble z, DoubleDouble w) {
    if (HasEulerIntegral(p)) return ByEulerIntegral(p, z, w);
    if (p.a.high > 0 && p.b.high > 0) return BySeries(p, z);
    if (!(p.a.high < 0 && p.b.high < 0)) return kFailure;
    const DoubleDouble s = p.c - p.a - p.b;
    HypergeometricPoint point = BySeries({p.c - p.a, p.c - p.b, p.c}, z);
    GammaProduct power;
    MultiplyByPower(Log(w), s, power);
    point.slope -= point.value * s * (z / w);
    return Times(power, point);
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint ByConnection(const HypergeometricParameters& p, DoubleDouble z,
                                 DoubleDouble w) {
    constexpr double kMostSize = 0x1p28;  // what gamma functions of sums are known for
    if (!(std::fabs(p.a.high) + std::fabs(p.b.high) - p.c.high < kMostSize)) return kFailure;
    const DoubleDouble s = p.c - p.a - p.b;
    const HypergeometricParameters atOne = {p.a, p.b, 1 - s};
    const HypergeometricParameters atZero = {p.a - p.c + 1, p.b - p.c + 1, 2 - p.c};
    if (!MayBeOneSigned(atOne) || !MayBeOneSigned(atZero)) return kFailure;
    HypergeometricPoint first = OneSigned(atOne, w, z);
    if (first.failed) return kFailure;
    first.slope *= -(z / w);
    HypergeometricPoint second = OneSigned(atZero, z, w);
    if (second.failed) return kFailure;
    second.slope += second.value * (1 - p.c);
    GammaProduct ofOne;
    MultiplyByGamma(atZero.a, ofOne);
    MultiplyByGamma(atZero.b, ofOne);
    DivideByGamma(1 - p.c, ofOne);
    GammaProduct ofZero = ofOne;
    DivideByGamma(atOne.c, ofOne);
    MultiplyByGamma(p.c - 1, ofZero);
    DivideByGamma(p.a, ofZero);
    DivideByGamma(p.b, ofZero);
    MultiplyByPower(Log(z), 1 - p.c, ofZero);
    ofZero.factor = -ofZero.factor;
    const HypergeometricPoint atFirst = Times(ofOne, first);
    return ofZero.vanishes ? atFirst : Sum(atFirst, Times(ofZero, second));
}

}  // namespace kalvex::specfun
