// The Gauss hypergeometric function by steps of 1 in its parameters. The walk starts at parameters
// of the same fractions next to 0, where the series at 0 and at 1 are short, and follows the
// straight line to those wanted: on it the turning points of the equation stay where they are, so
// that a point between them stays there and no solution outgrows the other (Gil, Segura, Temme
// 2007). It costs as many steps as the parameters are large, however fast the function swings.
//
// Beside w^0 the other behaviour at z = 1 is w^s, w = 1-z, s = c-a-b: a step that lowers s
// multiplies rounding errors of that kind by 1/w, one that raises it by w. So both kinds alternate.
//
// Long walks go in blocks of steps, four stretches of the way being worked out at the same time.
#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric_blocks.h"
#include "specfun/hypergeometric_noise.h"
#include "specfun/hypergeometric_route.h"

namespace kalvex::specfun {
namespace {

constexpr double kTolerance = 0x1p-100;
constexpr double kMostShifts = 4000;

Traveller StartOf(const HypergeometricParameters& from, const HypergeometricPoint& start,
                  const Place& place) {
    Traveller t;
    t.at.p = {from.a, from.b, from.c};
    t.at.columns[0].value = start.value;
    t.at.columns[0].slope = start.slope;
    t.scale = ScaleOf(t.at.p, place);
    StartNoise(t, start.error);
    return t;
}

bool IsLost(const Traveller& t) {
    constexpr double kHopeless = 0x1p-45;
    return t.relative > kHopeless || !(ErrorOf(t) < 1);
}

/// Step by step; false when too much is lost.
bool WalkTo(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    constexpr int kBetweenTidying = 16;
    Route route = RouteOf(StepsBetween({t.at.p[0], t.at.p[1], t.at.p[2]}, to));
    const double steps = route.ups + route.downs;
    for (int n = 0; n < steps; ++n) {
        const double size = SizeOfValue(t);
        const std::size_t next = NextTrack(route);
        t.growth += kStepError * size / SizeOfCompanion(t);
        const double error = ErrorOf(t);
        TakeStep(t.at, next, route.tracks[next].raises, place);
        t.scale = ScaleOf(t.at.p, place);
        if (t.at.collapsed || SizeOfCompanion(t) == 0) StartNoise(t, error * SizeOfValue(t));
        if (n % kBetweenTidying == 0) {
            Tidy(t);
            Straighten(t);
            if (IsLost(t)) return false;
        }
    }
    return true;
}

HypergeometricPoint PointOf(Traveller& t) {
    Tidy(t);
    const Column<DoubleDouble>& own = t.at.columns[0];
    const double total = SizeOfValue(t) * ErrorOf(t);
    const bool failed = !std::isfinite(total + own.value.high);
    return {own.value, own.slope, total, failed, false, t.exponent};
}

/// All steps of a block at once.
void Take(const Block& block, Traveller& t) {
    Column<DoubleDouble>& own = t.at.columns[0];
    const Block::Column& first = block.columns[0];
    const Block::Column& second = block.columns[1];
    const double u = std::fabs(own.value.high);
    const double v = std::fabs(own.slope.high);
    const DoubleDouble value = SumOfProducts(first.value, own.value, second.value, own.slope);
    own.slope = SumOfProducts(first.slope, own.value, second.slope, own.slope);
    own.value = value;
    const double companion = own.companion;
    own.companion = first.value.high * companion + second.value.high * own.companionSlope;
    own.companionSlope = first.slope.high * companion + second.slope.high * own.companionSlope;
    // of the parts of value and slope
    const double error = Size(first.valueError * u + second.valueError * v,
                              first.slopeError * u + second.slopeError * v, t.scale);
    const int before = t.exponent;
    Tidy(t);
    Straighten(t);
    const double scaled = std::ldexp(error, before - t.exponent);
    t.relative += scaled / SizeOfValue(t);
    t.growth += scaled / SizeOfCompanion(t);
}

/// Of the steps between two sets of parameters what each of four stretches takes: a quarter rounded
/// towards 0, but the longest ways up where that lets s rise by a quarter of its whole rise.
std::array<double, 3> Quarters(const std::array<double, 3>& all) {
    constexpr std::array<double, 3> kOfS = {-1, -1, 1};
    std::array<double, 3> quarters = {};
    std::array<bool, 3> isRounded = {};
    double rise = 0;
    double done = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        quarters[i] = std::trunc(all[i] / kLanes);
        isRounded[i] = quarters[i] * kLanes != all[i];
        rise += kOfS[i] * all[i];
        done += kOfS[i] * quarters[i];
    }
    double missing = std::floor(rise / kLanes) - done;
    while (missing != 0) {
        std::size_t longest = 3;
        for (std::size_t i = 0; i < 3; ++i) {
            if (!isRounded[i] || (kOfS[i] * all[i] > 0) != (missing > 0)) continue;
            if (longest == 3 || std::fabs(all[i]) > std::fabs(all[longest])) longest = i;
        }
        quarters[longest] += std::copysign(1, all[longest]);
        isRounded[longest] = false;
        missing -= std::copysign(1, missing);
    }
    return quarters;
}

/// Four stretches of the way with the same steps, their maps multiplied out side by side, and
/// single steps between them.
bool WalkInBlocks(const HypergeometricParameters& from, const HypergeometricParameters& to,
                  const Place& place, Traveller& t) {
    const std::array<double, 3> all = StepsBetween(from, to);
    const std::array<double, 3> steps = Quarters(all);
    std::array<HypergeometricParameters, kLanes> starts;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        const double done = static_cast<double>(lane);
        const auto share = [&](std::size_t i) {
            const double between = all[i] - kLanes * steps[i];
            return done * steps[i] + std::nearbyint(done * between / (kLanes - 1));
        };
        starts[lane] = {PlusInteger(from.a, share(0)), PlusInteger(from.b, share(1)),
                        PlusInteger(from.c, share(2))};
    }
    BlockTable table;
    const int blocks = MapBlocks(starts, RouteOf(steps), place, table);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        if (lane > 0 && !WalkTo(starts[lane], place, t)) return false;
        for (int i = 0; i < blocks; ++i) {
            Take(table[lane][static_cast<std::size_t>(i)], t);
            if (IsLost(t)) return false;
        }
        for (std::size_t i = 0; i < 3; ++i)
            t.at.p[i] = PlusInteger(t.at.p[i], steps[i]);
        t.scale = ScaleOf(t.at.p, place);
    }
    return true;
}

/// From the start, where value and slope are given, to p.
HypergeometricPoint Walk(const HypergeometricParameters& from, const HypergeometricPoint& start,
                         const HypergeometricParameters& to, const Place& place) {
    constexpr double kLeastForBlocks = 200;
    constexpr double kGood = 0x1p-56;
    constexpr double kNextToOne = 0x1p-20;
    const Route route = RouteOf(StepsBetween(from, to));
    const double steps = route.ups + route.downs;
    const HypergeometricPoint failure = {{}, {}, 0, true};
    if (!(steps <= kMostShifts)) return failure;
    if (steps >= kLeastForBlocks) {
        Traveller t = StartOf(from, start, place);
        if (WalkInBlocks(from, to, place, t)) {
            const HypergeometricPoint point = PointOf(t);
            const double size = std::fabs(point.value.high) + std::fabs(point.slope.high);
            if (point.error < kGood * size) return point;
        }
        if (place.w.high > kNextToOne && from.c.high > 0 && to.c.high > 0) return failure;
    }
    Traveller t = StartOf(from, start, place);
    return WalkTo(to, place, t) ? PointOf(t) : failure;
}

HypergeometricPoint WalkFrom(const HypergeometricParameters& from,
                             const HypergeometricParameters& to, const Place& place) {
    const HypergeometricPoint start = AtStart(from, place);
    return start.failed ? start : Walk(from, start, to, place);
}

/// a (a+1) ... (a+count-1) less a power of two, of which `exponent` takes `sign` times the
/// exponent.
DoubleDouble RisingProduct(DoubleDouble a, double count, int sign, int& exponent) {
    constexpr int kBetweenScaling = 16;
    DoubleDouble product = {1, 0};
    for (int k = 0; k < count; ++k) {
        product = LooseProduct(product, PlusInteger(a, k));
        if (k % kBetweenScaling != 0 && k + 1 < count) continue;
        int own = 0;
        product.high = std::frexp(product.high, &own);
        product.low = std::ldexp(product.low, -own);
        exponent += sign * own;
    }
    return product;
}

/// F(-n,b;c;z) = (c-b)_n / (c)_n F(-n,b;1+b-c-n;1-z) (DLMF 15.8.7), for c-a-b below 0 and z
/// above 1/2, where the behaviour w^s outgrows the polynomial.
HypergeometricPoint Reflected(const HypergeometricParameters& p, const Place& place) {
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const HypergeometricParameters other = {p.a, p.b, PlusInteger(Negate(s), 1)};
    const Place mirrored = {place.w,    place.z,        place.evens,
                            place.odds, place.inverseZ, place.inverse};
    constexpr double kBearable = 28;
    const double w = place.w.high;  // exact: z is above 1/2
    HypergeometricPoint point = ExpectedLoss(other, w) < kBearable
                                    ? SumHypergeometric(other, place.w, kTolerance)
                                    : WalkFrom(PolynomialStart(other), other, mirrored);
    if (point.failed) point = HypergeometricByParts(other, w);  // before the first zero
    if (point.failed) return point;
    point.slope = LooseProduct(Negate(point.slope), place.odds);
    int exponent = 0;
    const DoubleDouble factor = Divide(RisingProduct(Subtract(p.c, p.b), -p.a.high, 1, exponent),
                                       RisingProduct(p.c, -p.a.high, -1, exponent));
    point.exponent += exponent;
    point.value = Multiply(point.value, factor);
    point.slope = Multiply(point.slope, factor);
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
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const Place place = PlaceAt(z, w);
    if (s.high < 0 && z.high > 0.5) return Reflected(p, place);
    return WalkFrom(PolynomialStart(p), p, place);
}

double ShiftsTo(const HypergeometricParameters& p) {
    const Route route =
        RouteOf(StepsBetween(IsNegativeInteger(p.a) ? PolynomialStart(p) : GeneralStart(p), p));
    return route.ups + route.downs;
}

}  // namespace kalvex::specfun
