// The Gauss hypergeometric function by steps of 1 in its parameters. The walk starts at parameters
// of the same fractions next to 0, where the series at 0 and at 1 are short, and follows the
// straight line to those wanted: on it the turning points of the equation stay where they are, so
// that a point between them stays there and no solution outgrows the other (Gil, Segura, Temme
// 2007). It costs as many steps as the parameters are large, however fast the function swings.
// Outside the turning points one solution may outgrow the other; where the function is the minimal
// one the walk goes the other way round, from far out to the start (Gautschi 1967).
//
// Beside w^0 the other behaviour at z = 1 is w^s, w = 1-z, s = c-a-b: a step that lowers s
// multiplies rounding errors of that kind by 1/w, one that raises it by w. So both kinds alternate.
#include "specfun/hypergeometric/shifts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric/at_start.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/growth.h"
#include "specfun/hypergeometric/series.h"
#include "specfun/hypergeometric/start.h"
#include "specfun/hypergeometric/walk.h"

namespace kalvex::specfun {
namespace {

constexpr double kTolerance = kPairError;  // of series: what two doubles hold anyway
// e-foldings that a walk outwards may lose: 2^42 of the 2^100 of the arithmetic, which leaves 2^-58
constexpr double kBearableOutwards = 29;
constexpr HypergeometricPoint kFailure = {{}, {}, 0, true};  // no value

/// A detour for the end of a walk. Steps divide by c-a and c-b. Where one of these is an integer
/// below 2 in magnitude, the walk first goes to an a or b that is 2 away, so that the last steps
/// change that parameter alone.
HypergeometricParameters BeforeEnd(HypergeometricParameters p) {
    constexpr double kClose = 2;  // see above: the last two steps are then of a or b alone
    for (DoubleDouble* a : {&p.a, &p.b}) {
        const DoubleDouble apart = p.c - *a;
        if (apart.low != 0 || std::floor(apart.high) != apart.high) continue;
        if (std::fabs(apart.high) < kClose) *a += apart.high > 0 ? -kClose : kClose;
    }
    return p;
}

/// The walk from where the function is known to where it is wanted.
HypergeometricPoint Outwards(const HypergeometricParameters& from, const HypergeometricPoint& start,
                             const HypergeometricParameters& to, const Place& place,
                             bool takesBlocks) {
    Traveller t = StartOf(from, start);
    t.takesBlocks = takesBlocks;
    if (IsNegativeInteger(to.c) && !WalkTo(BeforeEnd(to), place, t)) return kFailure;
    return WalkTo(to, place, t) ? PointOf(t) : kFailure;
}

/// Walks to p from parameters that lie beyond it by `part` times `steps`. At the start of this walk
/// the value is 1 and the slope an estimate, whose error is taken to be at most the slope itself
/// plus z/w. Returns a bound of the relative error of the slope at p, infinite on failure.
double ComeFromFar(const HypergeometricParameters& p, const std::array<double, 3>& steps,
                   double part, const Place& place, Traveller& t) {
    const HypergeometricParameters far = Beyond(p, steps, part);
    const double slope = SlopeOfMinimal(far, place.z.high, place.w.high);
    HypergeometricPoint about = {{1, 0}, {slope, 0}};
    about.slopeError = std::fabs(slope) + place.odds.high;
    t = StartOf(far, about);
    if (!WalkTo(p, place, t)) return INFINITY;
    const Column<DoubleDouble>& own = t.at.columns[0];
    return t.error.across / std::fabs(own.value.high * own.slope.high);
}

bool IsGood(const HypergeometricPoint& point) {
    // A quarter of kGoodEnough, for what the change from z to x makes of the loss.
    constexpr double kGood = 0x1p-60;
    return point.error < kGood * (std::fabs(point.value.high) + std::fabs(point.slope.high));
}

/// A walk inwards computes a multiple of the function. At the end of the walk this multiple is
/// `known`, and the function is `start`. Multiplies `point` by the quotient of the two, which makes
/// it the function.
void ScaleTo(const HypergeometricPoint& start, const HypergeometricPoint& known,
             HypergeometricPoint& point) {
    const DoubleDouble factor = start.value / known.value;
    point.value *= factor;
    point.slope *= factor;
    point.exponent += start.exponent - known.exponent;
    point.error = std::fabs(point.value.high / start.value.high) * start.error;
    point.failed = !std::isfinite(point.value.high);
}

/// The backward recurrence for where the function is the minimal solution of the forward one
/// (Miller's algorithm). A walk from far out has the direction of the function when it comes to the
/// parameters wanted, and goes on to the start, where the value is known, which gives the factor.
/// It begins farther out, up to three times, where the solutions differ less than estimated.
HypergeometricPoint Inwards(const HypergeometricParameters& from, const HypergeometricPoint& start,
                            const HypergeometricParameters& to, const Place& place,
                            double outgrown) {
    constexpr double kNeeded = 43;  // e^-43 is 2^-62, less than the 2^-60 of IsGood
    const std::array<double, 3> steps = StepsBetween(from, to);
    HypergeometricPoint point = kFailure;
    for (const double times : {1.0, 1.5, 3.0}) {  // chosen: as estimated, and farther
        Traveller t;
        const double error = ComeFromFar(to, steps, times * kNeeded / outgrown, place, t);
        if (!(error < 1)) continue;  // nothing is known of the slope
        // the solution that has exactly this value here; only its slope is uncertain
        const Column<DoubleDouble>& own = t.at.columns[0];
        point = {own.value, own.slope, 0, false, false, t.exponent};
        point.slopeError = error * std::fabs(own.slope.high);
        t = StartOf(to, point);
        if (!WalkTo(from, place, t)) return kFailure;
        const HypergeometricPoint known = PointOf(t);
        ScaleTo(start, known, point);
        point.error += std::fabs(point.value.high / known.value.high) * known.error;
        if (IsGood(point)) break;
    }
    return point;
}

/// Whether a parameter or a difference by which the steps divide is next to an integer without
/// being one. Then a walk may divide by a number next to 0, which costs many digits whether the
/// steps are taken one by one or in blocks.
bool IsNextToInteger(const HypergeometricParameters& p) {
    constexpr double kNear = 0x1p-20;  // chosen: a division by less costs more than 20 bits
    const auto isNear = [](DoubleDouble a) {
        const double rest = (a - std::nearbyint(a.high)).high;
        return rest != 0 && std::fabs(rest) < kNear;
    };
    return isNear(p.a) || isNear(p.b) || isNear(p.c) || isNear(p.c - p.a) || isNear(p.c - p.b);
}

HypergeometricPoint WalkFrom(const HypergeometricParameters& from,
                             const HypergeometricParameters& to, const Place& place) {
    // Chosen: 40 steps seldom lose more than the 12 bits between 2^-72 and IsGood.
    constexpr double kFewSteps = 40;
    // Chosen: a start to 2^-72 takes about half as long as one to 2^-100.
    constexpr double kLessTolerance = 0x1p-72;
    // e-foldings, chosen. A walk inwards then starts beyond p by 43/15 = 2.9 times the way to p at
    // most.
    constexpr double kWorthIt = 15;
    // One by one they take 0.1 ms, the price of a sum of some hundred bits.
    constexpr double kMostSteps = 4000;
    constexpr double kNextToOne = 0.1;  // from x = 0.9 on (wide_value.cpp) such a sum is five sums
    const Route route = RouteOf(StepsBetween(from, to));
    if (route.ups + route.downs <= kFewSteps) {
        HypergeometricPoint point = AtStart(from, place, kLessTolerance);
        if (!point.failed) point = Outwards(from, point, to, place, false);
        if (!point.failed && IsGood(point)) return point;
    }
    const HypergeometricPoint start = AtStart(from, place, kTolerance);
    if (start.failed) return start;
    // for c up to 1 the function is not the minimal solution (growth.cpp)
    const double outgrown = to.c.high > 1 ? Outgrown(to, place.z.high, place.w.high) : 0;
    if (outgrown > kBearableOutwards) return Inwards(from, start, to, place, outgrown);
    HypergeometricPoint point = Outwards(from, start, to, place, true);
    // What else could give the value is a sum of many digits, which costs most next to z = 1.
    const bool isHopeful = place.w.high < kNextToOne || !IsNextToInteger(to);
    const bool mayTakeSteps = route.ups + route.downs <= kMostSteps && isHopeful;
    if (mayTakeSteps && (point.failed || !IsGood(point))) {
        point = Outwards(from, start, to, place, false);
    }
    const bool isLost = point.failed || !IsGood(point);
    return isLost && outgrown > kWorthIt ? Inwards(from, start, to, place, outgrown) : point;
}

/// a (a+1) ... (a+count-1) times a power of two that keeps it within the range. `sign` times the
/// exponent that was taken out is added to `exponent`.
DoubleDouble RisingProduct(DoubleDouble a, double count, int sign, int& exponent) {
    // Chosen: as long as walks are, factors are at most 2^17, and sixteen of them at most 2^272.
    constexpr int kBetweenScaling = 16;
    DoubleDouble product = {1, 0};
    for (int k = 0; k < count; ++k) {
        product = LooseProduct(product, a + k);
        if (k % kBetweenScaling != 0 && k + 1 < count) continue;
        int own = 0;
        product.high = std::frexp(product.high, &own);
        product.low = std::ldexp(product.low, -own);
        exponent += sign * own;
    }
    return product;
}

/// F(-n,b;c;z) = (c-b)_n / (c)_n F(-n,b;1+b-c-n;1-z) (DLMF 15.8.7), for where other solutions
/// outgrow the polynomial next to z = 1: for c-a-b below 0 the behaviour w^s does.
HypergeometricPoint Reflected(const HypergeometricParameters& p, const Place& place,
                              const HypergeometricParameters& other, const Place& mirrored) {
    // e-foldings, chosen. With 10 or 28 scripts/time-hypergeometric tells the same times and
    // values.
    constexpr double kBearableLoss = 18;
    if (-p.a.high > kMostShifts) return kFailure;
    HypergeometricPoint point = kFailure;
    if (ExpectedLoss(other, place.w.high) < kBearableLoss) {
        point = SumHypergeometric(other, place.w, kTolerance);
    }
    if (point.failed || !IsGood(point)) {
        point = WalkFrom(PolynomialStart(other), other, mirrored);
    }
    if (point.failed) return point;
    point.slope = LooseProduct(-point.slope, place.odds);
    int exponent = 0;
    const DoubleDouble factor = RisingProduct(p.c - p.b, -p.a.high, 1, exponent) /
                                RisingProduct(p.c, -p.a.high, -1, exponent);
    point.exponent += exponent;
    point.value *= factor;
    point.slope *= factor;
    point.error *= std::fabs(factor.high);
    return point;
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint HypergeometricByShifts(const HypergeometricParameters& p, DoubleDouble z,
                                           DoubleDouble w) {
    return WalkFrom(GeneralStart(p), p, PlaceAt(z, w));
}

KALVEX_WITH_FMA
HypergeometricPoint PolynomialByShifts(const HypergeometricParameters& p, DoubleDouble z,
                                       DoubleDouble w) {
    const DoubleDouble s = p.c - p.a - p.b;
    const Place place = PlaceAt(z, w);
    const Place mirrored = {w, z, place.evens, place.odds, place.inverseZ, place.inverse};
    const HypergeometricParameters other = {p.a, p.b, 1 - s};
    const bool isMinimal = p.c.high > 1 && Outgrown(p, z.high, w.high) > kBearableOutwards;
    // beyond z = 1/2, chosen, w is the smaller argument
    const bool isMinimalThere =
        s.high < 0 ? z.high > 0.5 || Outgrown(other, w.high, z.high) > kBearableOutwards
                   : p.c.high <= p.a.high && Outgrown(p, z.high, w.high) > kBearableOutwards;
    if (isMinimalThere && !isMinimal) return Reflected(p, place, other, mirrored);
    return WalkFrom(PolynomialStart(p), p, place);
}

double ShiftsTo(const HypergeometricParameters& p) {
    const Route route =
        RouteOf(StepsBetween(IsNegativeInteger(p.a) ? PolynomialStart(p) : GeneralStart(p), p));
    return route.ups + route.downs;
}

}  // namespace kalvex::specfun
