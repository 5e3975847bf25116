// A short walk takes one step after the other. A long one takes blocks of steps, which are
// multiplied out beforehand, those of four stretches of the way at the same time. What rounding
// does is recorded step by step (running_error.h).
#include "specfun/hypergeometric/walk.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "specfun/hypergeometric/blocks.h"
#include "specfun/hypergeometric/stretches.h"

namespace kalvex::specfun {
namespace {

/// How large the slope of a solution is beside its value, roughly; w^s has the largest.
double ScaleOf(const HypergeometricParameters& p, const Place& place) {
    const double size = 1 + std::fabs(p.a.high) + std::fabs(p.b.high) + std::fabs(p.c.high);
    return size * std::max(1.0, place.odds.high);
}

HypergeometricParameters ParametersOf(const Traveller& t) {
    return {t.at.p[0], t.at.p[1], t.at.p[2]};
}

/// Normalises value and slope and keeps them within the range. False when the error of the
/// direction has become as large as the solution.
bool Tidy(Traveller& t, const Place& place) {
    constexpr int kScale = 200;         // chosen: the squares of what is left stay within the range
    constexpr double kLarge = 0x1p200;  // 2^kScale
    Column<DoubleDouble>& own = t.at.columns[0];
    own.value = QuickTwoSum(own.value.high, own.value.low);
    own.slope = QuickTwoSum(own.slope.high, own.slope.low);
    const double scale = ScaleOf(ParametersOf(t), place);
    const double size = std::fabs(own.value.high) + std::fabs(own.slope.high) / scale;
    if (!(t.error.across <= scale * size * size)) return false;
    const double all = std::fabs(own.value.high) + std::fabs(own.slope.high);
    if (all < kLarge && all > 1 / kLarge) return true;
    const int by = all > 1 ? -kScale : kScale;
    own.value = Scale(own.value, by);
    own.slope = Scale(own.slope, by);
    Rescale(std::ldexp(1, by), t.error);
    t.exponent -= by;
    return true;
}

bool WalkByStep(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    // Chosen: most steps multiply by some units at most, 16 of them by far less than the 2^800 that
    // kScale leaves. If value or slope leave the range all the same, the walk fails.
    constexpr int kBetweenTidying = 16;
    Route route = RouteOf(StepsBetween(ParametersOf(t), to));
    const double steps = route.ups + route.downs;
    if (steps == 0) return true;
    Reserve(t.error, static_cast<std::size_t>(steps));
    for (int n = 0; n < steps; ++n) {
        const std::size_t next = NextTrack(route);
        const Column<DoubleDouble> before = t.at.columns[0];
        const TraceOf<double> trace = TakeStep(t.at, next, route.tracks[next].raises, place);
        Record(trace, before, t.at.columns[0], t.error);
        if (n % kBetweenTidying == 0 && !Tidy(t, place)) return false;
    }
    return Tidy(t, place);
}

/// All steps of a block at once.
void Take(const Block& block, Traveller& t) {
    Column<DoubleDouble>& own = t.at.columns[0];
    const auto& [first, second] = block.columns;
    const Column<DoubleDouble> before = own;
    own = {SumOfProducts(first.value, before.value, second.value, before.slope),
           SumOfProducts(first.slope, before.value, second.slope, before.slope)};
    Record(block.trace, before, own, t.error);
}

/// Walks the four stretches in blocks, and the steps left over between them one by one.
bool WalkInBlocks(const Stretches& stretches, const Place& place, Traveller& t) {
    BlockTable table;
    const int blocks = MapBlocks(stretches.starts, RouteOf(stretches.steps), place, table);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        if (lane > 0 && !WalkByStep(stretches.starts[lane], place, t)) return false;
        Reserve(t.error, static_cast<std::size_t>(blocks));
        for (int i = 0; i < blocks; ++i) {
            Take(table[lane][static_cast<std::size_t>(i)], t);
            if (!Tidy(t, place)) return false;
        }
        for (std::size_t i = 0; i < 3; ++i)
            t.at.p[i] += stretches.steps[i];
    }
    return true;
}

/// Where a traveller is, without the steps that have led there.
Traveller WithoutSteps(Traveller& t) {
    std::vector<RecordedStep> steps = std::move(t.error.steps);
    t.error.steps = {};
    Traveller start = t;
    t.error.steps = std::move(steps);
    return start;
}

void GoBack(const Traveller& start, Traveller& t) {
    std::vector<RecordedStep> steps = std::move(t.error.steps);
    t = start;
    t.error.steps = std::move(steps);
}

/// A part of the way that the table of blocks has room for. Next to z = 1 some steps in a row that
/// lower s, as they come where stretches meet, may lose all digits. There the steps left over are
/// taken all in one gap, where steps that lower s and steps that raise it alternate.
bool WalkLeg(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    constexpr double kLeastForBlocks = 200;  // chosen: four stretches of 50 steps, or four blocks
    constexpr double kNextToOne = 0x1p-20;  // chosen: five steps that multiply by 1/w lose 100 bits
    const HypergeometricParameters from = ParametersOf(t);
    const std::array<double, 3> all = StepsBetween(from, to);
    if (!t.takesBlocks || Length(all) < kLeastForBlocks) return WalkByStep(to, place, t);
    const bool isNextToOne = place.w.high < kNextToOne;
    std::array<LeftOver, 3> ways = {LeftOver::kSpread, LeftOver::kFirst, LeftOver::kLast};
    if (isNextToOne) std::rotate(ways.begin(), ways.begin() + 1, ways.end());
    std::stable_partition(ways.begin(), ways.end(), [&](LeftOver way) {
        return !Crosses(StretchesOf(from, all, way), from, to);
    });
    const Traveller start = WithoutSteps(t);
    for (const LeftOver way : ways) {
        GoBack(start, t);
        if (WalkInBlocks(StretchesOf(from, all, way), place, t)) return true;
        if (!isNextToOne) return false;
    }
    GoBack(start, t);
    return WalkByStep(to, place, t);
}

}  // namespace

Traveller StartOf(const HypergeometricParameters& p, const HypergeometricPoint& point) {
    Traveller t;
    t.at.p = {p.a, p.b, p.c};
    t.at.columns[0] = {point.value, point.slope};
    t.exponent = point.exponent;
    t.error.value = point.error;
    t.error.slope = point.slopeError;
    t.error.across =
        point.error * std::fabs(point.slope.high) + point.slopeError * std::fabs(point.value.high);
    return t;
}

KALVEX_WITH_FMA
bool WalkTo(const HypergeometricParameters& to, const Place& place, Traveller& t) {
    // The table has room for four stretches of 1024 steps. That of one stretch is left free,
    // because stretches are not equal to a quarter of the way but for rounding.
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
    // Twice kPairError for the argument, chosen: where it is x/(x-1) it is rounded, by 2^-103.
    constexpr double kOfArgument = 0x1p-99;
    const Column<DoubleDouble>& own = t.at.columns[0];
    const double error = ErrorOfValue(t.error, own) +
                         kOfArgument * (std::fabs(own.value.high) + std::fabs(own.slope.high));
    const bool failed = !std::isfinite(error + own.value.high);
    return {own.value, own.slope, error, failed, false, t.exponent};
}

}  // namespace kalvex::specfun
