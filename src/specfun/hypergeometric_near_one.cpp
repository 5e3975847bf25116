// The Gauss hypergeometric function near x = 1. With w = 1-x and s = c-a-b the equation has the
// solutions (DLMF 15.10.13, 15.10.14)
//   f = F(a,b;1-s;w)  and  g = (w/w0)^s F(c-a,c-b;1+s;w).
// F = A f + B g; A and B follow from F and its slope at a point w0 where the series at 0 still
// does well, which needs no gamma function and no case of its own for large parameters. For s
// near an integer f and g grow alike and their difference loses digits, as many as s is near;
// for s nearer than the precision bears, or integral, F is interpolated between two values of a,
// in which it is analytic.
#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric_parts.h"

namespace kalvex::specfun {
namespace {

constexpr double kTolerance = 0x1p-100;
constexpr double kNear = 0x1p-34;  // of c-a-b to an integer

/// f, g and w times their derivatives.
struct LocalSolutions {
    HypergeometricPoint f;
    HypergeometricPoint g;  // without the power of w
    DoubleDouble slopeOfG;
};

struct Local {
    HypergeometricParameters f;
    HypergeometricParameters g;
    DoubleDouble s;
};

Local LocalParameters(const HypergeometricParameters& p) {
    const DoubleDouble fromA = Subtract(p.c, p.a);
    const DoubleDouble fromB = Subtract(p.c, p.b);
    const DoubleDouble s = Subtract(fromA, p.b);
    return {{p.a, p.b, Add(Negate(s), 1.0)}, {fromA, fromB, Add(s, 1.0)}, s};
}

LocalSolutions SolutionsAt(const Local& local, double w) {
    LocalSolutions at = {SumHypergeometric(local.f, {w, 0}, kTolerance),
                         SumHypergeometric(local.g, {w, 0}, kTolerance),
                         {}};
    at.slopeOfG = Add(Multiply(local.s, at.g.value), at.g.slope);
    return at;
}

bool Failed(const LocalSolutions& at) {
    return at.f.failed || at.g.failed;
}

double RelativeError(const HypergeometricPoint& p) {
    return 0x1p-100 + p.error / (std::fabs(p.value.high) + std::fabs(p.slope.high));
}

/// How much the series grows from 0 to w, as a natural logarithm. Where all its terms are positive
/// it loses nothing itself, but the two solutions grow alike and their difference loses that.
double GrowthTo(const HypergeometricParameters& p, double w) {
    const double product = std::fabs(p.a.high * p.b.high * w);
    return std::min(2 * std::sqrt(product), product / std::max(std::fabs(p.c.high), 1.0));
}

/// The greatest power of two, 1/2 at most, at which the local series grow little.
double MatchingPoint(const Local& local) {
    constexpr double kBearable = 16;
    double w = 0.5;
    while (w > 0x1p-40 && (GrowthTo(local.f, w) > kBearable || GrowthTo(local.g, w) > kBearable))
        w /= 2;
    return w;
}

HypergeometricPoint Matched(const HypergeometricParameters& p, double x) {
    const Local local = LocalParameters(p);
    const double w0 = MatchingPoint(local);
    const double w = 1 - x;
    if (w >= w0) return HypergeometricByParts(p, x);
    HypergeometricPoint start = HypergeometricByParts(p, 1 - w0);
    const DoubleDouble slope = Divide(Multiply(start.slope, -w0), 1 - w0);
    const LocalSolutions at0 = SolutionsAt(local, w0);
    const LocalSolutions at = SolutionsAt(local, w);
    const DoubleDouble power = Exp(Multiply(local.s, Log(Divide({w, 0}, w0))));

    const DoubleDouble fg = Multiply(at0.f.value, at0.slopeOfG);
    const DoubleDouble gf = Multiply(at0.g.value, at0.f.slope);
    const DoubleDouble determinant = Subtract(fg, gf);
    const DoubleDouble ofA1 = Multiply(start.value, at0.slopeOfG);
    const DoubleDouble ofA2 = Multiply(at0.g.value, slope);
    const DoubleDouble ofB1 = Multiply(at0.f.value, slope);
    const DoubleDouble ofB2 = Multiply(at0.f.slope, start.value);
    const DoubleDouble first = Divide(Multiply(Subtract(ofA1, ofA2), at.f.value), determinant);
    const DoubleDouble factor = Divide(Multiply(at.g.value, power), determinant);
    const DoubleDouble second = Multiply(Subtract(ofB1, ofB2), factor);

    const double relative = RelativeError(start) + RelativeError(at0.f) + RelativeError(at0.g);
    const double ofDeterminant =
        relative * (std::fabs(fg.high) + std::fabs(gf.high)) / std::fabs(determinant.high);
    const double sizeOfA = std::fabs(ofA1.high) + std::fabs(ofA2.high);
    const double sizeOfB = std::fabs(ofB1.high) + std::fabs(ofB2.high);
    start.value = Add(first, second);
    start.error = relative * (sizeOfA * std::fabs(at.f.value.high / determinant.high) +
                              sizeOfB * std::fabs(factor.high)) +
                  RelativeError(at.f) * std::fabs(first.high) +
                  RelativeError(at.g) * std::fabs(second.high) +
                  ofDeterminant * std::fabs(start.value.high);
    start.failed = start.failed || Failed(at0) || Failed(at) || !std::isfinite(start.value.high);
    const double slopeInW = first.high * (at.f.slope.high / at.f.value.high) +
                            second.high * (at.slopeOfG.high / at.g.value.high);
    start.slope = {-slopeInW * x / w, 0};
    return start;
}

/// Where c-a-b is `delta` above an integer: linear in a, of which the function is an entire one
/// whatever c is, between the values at `kNear` on both
/// sides. What the square of the distance leaves is below 1e-17, and the difference of the two is
/// small beside the value, so that one double holds it.
HypergeometricPoint Interpolated(const HypergeometricParameters& p, double x, double delta) {
    HypergeometricParameters moved = p;
    moved.a = Add(p.a, delta - kNear);
    HypergeometricPoint result = Matched(moved, x);
    moved.a = Add(p.a, delta + kNear);
    const HypergeometricPoint below = Matched(moved, x);
    const double difference = ToDouble(Subtract(result.value, below.value));
    result.value = Add(result.value, (delta / kNear - 1) / 2 * difference);
    constexpr double kCurvature = 16;  // the second derivative by the first, with a margin
    result.error =
        2 * std::max(result.error, below.error) + std::fabs(difference) * kNear * kCurvature;
    result.failed = result.failed || below.failed;
    return result;
}

}  // namespace

HypergeometricPoint HypergeometricNearOne(const HypergeometricParameters& p, double x) {
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const double integer = std::nearbyint(s.high);
    const double delta = ToDouble(Subtract(s, integer));
    return std::fabs(delta) < kNear ? Interpolated(p, x, delta) : Matched(p, x);
}

}  // namespace kalvex::specfun
