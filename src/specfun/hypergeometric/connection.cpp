// For c below 0 the function is a combination of a solution at z = 1 and of the other solution at
// z = 0, whose third parameters are positive (DLMF 15.10.17 solved for the function; s = c-a-b):
//   F = G F(a,b;1-s;w) / Gamma(1-s) - G Gamma(c-1) / (Gamma(a) Gamma(b)) z^(1-c) Y,
//   Y = F(a-c+1,b-c+1;2-c;z),  G = Gamma(a-c+1) Gamma(b-c+1) / Gamma(1-c).
// Either is of one sign, with Euler's integral or with a series of positive terms, unless one of
// its numerator parameters is below 0 and the other above its third one. What cancels between the
// two parts is seen from their sizes.
#include "specfun/hypergeometric/connection.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "specfun/hypergeometric/euler_integral.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/log_gamma.h"
#include "specfun/hypergeometric/loop_integral.h"
#include "specfun/hypergeometric/scaled_point.h"
#include "specfun/hypergeometric/series.h"

namespace kalvex::specfun {
namespace {

/// The series, whose terms are all positive, unless it is long.
HypergeometricPoint BySeries(const HypergeometricParameters& p, DoubleDouble z) {
    constexpr double kMost = 1000;  // terms, chosen: 7 us, what Euler's integral takes
    // By value and slope, chosen: 2^14 below kGoodEnough, for what cancels between two solutions.
    constexpr double kTolerance = 0x1p-72;
    if (!(CostOf(Form{p, {}}, z.high) < kMost)) return kFailedPoint;
    return SumHypergeometric(p, z, kTolerance);
}

/// The parameters of the solutions that the function is made of.
HypergeometricParameters AtOne(const HypergeometricParameters& p) {
    return {p.a, p.b, p.a + p.b - p.c + 1};
}

HypergeometricParameters AtZero(const HypergeometricParameters& p) {
    return {p.a - p.c + 1, p.b - p.c + 1, 2 - p.c};
}

/// By the loop integral over the greater of a and b, which is positive.
HypergeometricPoint ByLoop(HypergeometricParameters p, DoubleDouble z, DoubleDouble w) {
    if (p.a.high > p.b.high) std::swap(p.a, p.b);
    return ByLoopIntegral(p, z, w);
}

/// Where neither a nor b is below 0, or one is.
HypergeometricPoint ByLoopOrSeries(const HypergeometricParameters& p, DoubleDouble z,
                                   DoubleDouble w) {
    const bool isPositive = p.c.high > 0 && p.a.high > 0 && p.b.high > 0;
    const HypergeometricPoint point = isPositive ? BySeries(p, z) : kFailedPoint;
    return point.failed ? ByLoop(p, z, w) : point;
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint ByOneIntegral(const HypergeometricParameters& p, DoubleDouble z,
                                  DoubleDouble w) {
    if (HasEulerIntegral(p)) return ByEulerIntegral(p, z, w);
    if (p.a.high > 0 || p.b.high > 0) return ByLoopOrSeries(p, z, w);
    const DoubleDouble s = p.c - p.a - p.b;
    const HypergeometricParameters euler = {p.c - p.a, p.c - p.b, p.c};
    if (!(euler.a.high > 0 || euler.b.high > 0)) return kFailedPoint;
    HypergeometricPoint point = ByLoopOrSeries(euler, z, w);
    GammaProduct power;
    MultiplyByPower(Log(w), s, power);
    point.slope -= point.value * s * (z / w);
    return Times(power, point);
}

bool ConnectsEulerIntegrals(const HypergeometricParameters& p) {
    return HasEulerIntegral(AtOne(p)) && HasEulerIntegral(AtZero(p));
}

// F(-m,b;c;z) = (c-b)_m / (c)_m F(-m,b;1+b-c-m;1-z) (DLMF 15.8.7), where c may be -m, -m-1, ...
KALVEX_WITH_FMA
HypergeometricPoint ByReflection(const HypergeometricParameters& p, DoubleDouble z,
                                 DoubleDouble w) {
    const HypergeometricParameters other = {p.a, p.b, p.a + p.b - p.c + 1};
    if (IsNegativeInteger(other.c)) return kFailedPoint;
    HypergeometricPoint point = ByOneIntegral(other, w, z);
    point.slope *= -(z / w);
    GammaProduct factor;
    MultiplyByGamma(p.b - p.c + 1, factor);
    DivideByGamma(other.c, factor);
    MultiplyByGamma(p.a - p.c + 1, factor);
    DivideByGamma(1 - p.c, factor);
    return Times(factor, point);
}

KALVEX_WITH_FMA
HypergeometricPoint ByConnection(const HypergeometricParameters& p, DoubleDouble z,
                                 DoubleDouble w) {
    // Gamma functions are known up to 2^30, and the magnitudes of the parameters of the solution at
    // 0 add up to three times this and 4 at most.
    constexpr double kMostSize = 0x1p28;
    if (!(std::fabs(p.a.high) + std::fabs(p.b.high) - p.c.high < kMostSize)) return kFailedPoint;
    const HypergeometricParameters atOne = AtOne(p);
    const HypergeometricParameters atZero = AtZero(p);
    HypergeometricPoint first = ByOneIntegral(atOne, w, z);
    if (first.failed) return kFailedPoint;
    first.slope *= -(z / w);
    HypergeometricPoint second = ByOneIntegral(atZero, z, w);
    if (second.failed) return kFailedPoint;
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
