// A walk takes one step after the other, a long one blocks of steps, four stretches of the way
// being worked out at the same time. Its twin (shift_steps.h) goes along and tells what rounding
// does.
#include "specfun/hypergeometric/walk.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric/blocks.h"
#include "specfun/hypergeometric/stretches.h"

namespace kalvex::specfun {
namespace {

/// What the slope of a solution may be beside its value, that of w^s above all.
double ScaleOf(const HypergeometricParameters& p, const Place& place) {
    const double size = 1 + std::fabs(p.a.high) + std::fabs(p.b.high) + std::fabs(p.c.high);
    return size * std::max(1.0, place.odds.high);
}

HypergeometricParameters ParametersOf(const Traveller& t) {
    return {t.at.p[0], t.at.p[1], t.at.p[2]};
}

/// Keeps the numbers normalised and within the range. False when rounding has outgrown them.
bool Tidy(Traveller& t, const Place& place) {
    constexpr double kLarge = 0x1p400;
    constexpr int kScale = 400;
    constexpr double kMostApart = 4 / kTwinError;
    Column<DoubleDouble>& own = t.at.columns[0];
    own.value = QuickTwoSum(own.value.high, own.value.low);
    own.slope = QuickTwoSum(own.slope.high, own.slope.low);
    const double scale = ScaleOf(ParametersOf(t), place);
    const double apart =
        std::fabs(own.twin - own.value.high) + std::fabs(own.twinSlope - own.slope.high) / scale;
    const double size = std::fabs(own.value.high) + std::fabs(own.slope.high) / scale;
    if (!(apart <= kMostApart * size)) return false;
    const double all = std::fabs(own.value.high) + std::fabs(own.slope.high);
    if (all < kLarge && all > 1 / kLarge) return true;
    const int by = all > 1 ? -kScale : kScale;
    own.value = Scale(own.value, by);
    own.slope = Scale(own.slope, by);
    own.twin = std::ldexp(own.twin, by);
    own.twinSlope = std::ldexp(own.twinSlope, by);
    t.exponent -= by;
    return true;
}

bool WalkByStep(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    constexpr int kBetweenTidying = 16;
    Route route = RouteOf(StepsBetween(ParametersOf(t), to));
    const double steps = route.ups + route.downs;
    for (int n = 0; n < steps; ++n) {
        const std::size_t next = NextTrack(route);
        TakeStep(t.at, next, route.tracks[next].raises, place);
        if (n % kBetweenTidying == 0 && !Tidy(t, place)) return false;
    }
    return Tidy(t, place);
}

/// All steps of a block at once. The twin takes those of the block's own twins.
void Take(const Block& block, Traveller& t) {
    Column<DoubleDouble>& own = t.at.columns[0];
    const auto& [first, second] = block;
    const DoubleDouble value = SumOfProducts(first.value, own.value, second.value, own.slope);
    own.slope = SumOfProducts(first.slope, own.value, second.slope, own.slope);
    own.value = value;
    const double twin = first.twin * own.twin * kOff + second.twin * own.twinSlope * kLess;
    own.twinSlope = first.twinSlope * own.twin * kLess + second.twinSlope * own.twinSlope * kOff;
    own.twin = twin;
}

/// The stretches' maps multiplied out side by side, and the steps between them.
bool WalkInBlocks(const Stretches& stretches, const Place& place, Traveller& t) {
    BlockTable table;
    const int blocks = MapBlocks(stretches.starts, RouteOf(stretches.steps), place, table);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        if (lane > 0 && !WalkByStep(stretches.starts[lane], place, t)) return false;
        for (int i = 0; i < blocks; ++i) {
            Take(table[lane][static_cast<std::size_t>(i)], t);
            if (!Tidy(t, place)) return false;
        }
        for (std::size_t i = 0; i < 3; ++i)
            t.at.p[i] = PlusInteger(t.at.p[i], stretches.steps[i]);
    }
    return true;
}

/// Next to z = 1 steps that lower s in a row, where stretches meet, may lose all: there what is
/// left over comes together, where such steps and those that raise s alternate.
bool WalkLeg(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    constexpr double kLeastForBlocks = 200;
    constexpr double kNextToOne = 0x1p-20;
    const HypergeometricParameters from = ParametersOf(t);
    const std::array<double, 3> all = StepsBetween(from, to);
    if (Length(all) < kLeastForBlocks) return WalkByStep(to, place, t);
    const bool isNextToOne = place.w.high < kNextToOne;
    std::array<LeftOver, 3> ways = {LeftOver::kSpread, LeftOver::kFirst, LeftOver::kLast};
    if (isNextToOne) std::rotate(ways.begin(), ways.begin() + 1, ways.end());
    std::stable_partition(ways.begin(), ways.end(), [&](LeftOver way) {
        return !Crosses(StretchesOf(from, all, way), from, to);
    });
    const Traveller start = t;
    for (const LeftOver way : ways) {
        t = start;
        if (WalkInBlocks(StretchesOf(from, all, way), place, t)) return true;
        if (!isNextToOne) return false;
    }
    t = start;
    return WalkByStep(to, place, t);
}

}  // namespace

Traveller StartOf(const HypergeometricParameters& p, const HypergeometricPoint& point,
                  const Place& place) {
    const double scale = ScaleOf(p, place);
    const double value = point.value.high;
    const double slope = point.slope.high;
    const double relative = point.error / kTwinError / (std::fabs(value) + std::fabs(slope));
    Traveller t;
    t.at.p = {p.a, p.b, p.c};
    t.at.columns[0] = {
        point.value, point.slope, value + relative * (std::fabs(value) + std::fabs(slope) / scale),
        slope - relative * (std::fabs(slope) + std::fabs(value)) - point.slopeError / kTwinError};
    t.exponent = point.exponent;
    return t;
}

void TurnTwin(Traveller& t, const Place& place) {
    Column<DoubleDouble>& own = t.at.columns[0];
    const double scale = ScaleOf(ParametersOf(t), place);
    own.twin = own.slope.high / scale;
    own.twinSlope = -own.value.high * scale;
}

double ApartInDirection(const Traveller& t) {
    const Column<DoubleDouble>& own = t.at.columns[0];
    return std::fabs(1 - own.twinSlope / own.slope.high * (own.value.high / own.twin));
}

void MoveTwin(Traveller& t, double error) {
    Column<DoubleDouble>& own = t.at.columns[0];
    own.twin = own.value.high;
    own.twinSlope = own.slope.high * (1 + error / kTwinError);
}

KALVEX_WITH_FMA
bool WalkTo(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    constexpr double kOfLeg = kMostBlocks * kBlockSteps * (kLanes - 1);
    const HypergeometricParameters from = ParametersOf(t);
    const std::array<double, 3> all = StepsBetween(from, to);
    const double steps = Length(all);
    if (!(steps <= kMostShifts)) return false;
    const double legs = std::ceil(steps / kOfLeg);
    for (double leg = 1; leg <= legs; leg += 1) {
        if (!WalkLeg(Beyond(from, all, leg / legs), place, t)) return false;
    }
    return true;
}

HypergeometricPoint PointOf(const Traveller& t) {
    constexpr double kLeastError = 0x1p-99;
    // one sample of what rounding does, which may happen to be small where one rounding counts
    constexpr double kMargin = 0x1p10;
    const Column<DoubleDouble>& own = t.at.columns[0];
    const double error = kMargin * kTwinError * std::fabs(own.twin - own.value.high) +
                         kLeastError * (std::fabs(own.value.high) + std::fabs(own.slope.high));
    const bool failed = !std::isfinite(error + own.value.high);
    return {own.value, own.slope, error, failed, false, t.exponent};
}

}  // namespace kalvex::specfun
