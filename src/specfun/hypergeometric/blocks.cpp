// The steps of a walk depend on each other, and each waits for the one before. Their maps do not:
// four stretches of the walk are multiplied out at once, one in each lane of a vector, as maps of
// some steps each that the walk then takes one after another.
//
// The two columns of a block are computed solutions themselves. With V(k) the adjoint recurrence
// backward from the unit matrix, P(k) the columns and otherwise the letters of running_error.cpp,
// their errors are at most eta times
//   sum of |V(k)| A(k) |P(k-1)| + n^2 rho A(n) ... A(1),
// the second because each V(k) computed in plain arithmetic is off by at most n rho A(n) ...
// A(k+1), and |P(k-1)| is at most A(k-1) ... A(1). That product of magnitudes grows beside the true
// one by a factor for each step, so that blocks must be short: n^2 rho = 2^-42 leaves room for one
// of seven for each of 16 steps.
#include "specfun/hypergeometric/blocks.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

using specfun::InAllLanes;

/// It takes two columns: what the steps make of (1,0) and of (0,1).
template <typename Unit>
using LaneWalker = WalkerOf<LanesOf<Unit>, 2>;

template <typename Unit>
LanesOf<Unit> Gather(const std::array<DoubleDouble, kLanes>& values) {
    LanesOf<Unit> lanes = {};
    for (std::size_t i = 0; i < kLanes; ++i) {
        lanes.high[i] = values[i].high;
        lanes.low[i] = values[i].low;
    }
    return lanes;
}

template <typename Unit>
PlaceOf<LanesOf<Unit>> InAllLanes(const Place& place) {
    return {InAllLanes<Unit>(place.z),       InAllLanes<Unit>(place.w),
            InAllLanes<Unit>(place.odds),    InAllLanes<Unit>(place.evens),
            InAllLanes<Unit>(place.inverse), InAllLanes<Unit>(place.inverseZ)};
}

/// The same in each lane.
using Maps = MapOf<Four>;

Maps UnitMap() {
    return {specfun::InAllLanes(1), Four{}, Four{}, specfun::InAllLanes(1)};
}

/// a b.
Maps Product(const Maps& a, const Maps& b) {
    return {a.valueOfValue * b.valueOfValue + a.valueOfSlope * b.slopeOfValue,
            a.valueOfValue * b.valueOfSlope + a.valueOfSlope * b.slopeOfSlope,
            a.slopeOfValue * b.valueOfValue + a.slopeOfSlope * b.slopeOfValue,
            a.slopeOfValue * b.valueOfSlope + a.slopeOfSlope * b.slopeOfSlope};
}

Maps Sum(const Maps& a, const Maps& b) {
    return {a.valueOfValue + b.valueOfValue, a.valueOfSlope + b.valueOfSlope,
            a.slopeOfValue + b.slopeOfValue, a.slopeOfSlope + b.slopeOfSlope};
}

Maps Magnitudes(const Maps& a) {
    return {Magnitude(a.valueOfValue), Magnitude(a.valueOfSlope), Magnitude(a.slopeOfValue),
            Magnitude(a.slopeOfSlope)};
}

template <typename Unit>
Maps LeadingParts(const LaneWalker<Unit>& at) {
    return {at.columns[0].value.high, at.columns[1].value.high, at.columns[0].slope.high,
            at.columns[1].slope.high};
}

template <typename Unit>
void StartColumns(LaneWalker<Unit>& at) {
    const LanesOf<Unit> unit = InAllLanes<Unit>(DoubleDouble{1, 0});
    const LanesOf<Unit> zero = InAllLanes<Unit>(DoubleDouble{});
    at.columns = {Column<LanesOf<Unit>>{unit, zero}, Column<LanesOf<Unit>>{zero, unit}};
}

/// What is known of the steps of a block.
struct BlockTrace {
    std::array<Maps, kBlockSteps> maps;
    std::array<Maps, kBlockSteps> local;  // A(k) |P(k-1)|
    Maps all = UnitMap();                 // A(n) ... A(1)
    Four determinant = specfun::InAllLanes(1);
    std::size_t count = 0;
};

void Take(const TraceOf<Four>& step, const Maps& before, BlockTrace& trace) {
    trace.maps[trace.count] = step.map;
    trace.local[trace.count] = Product(step.bound, Magnitudes(before));
    ++trace.count;
    trace.all = Product(step.bound, trace.all);
    trace.determinant *= step.determinant;
}

/// A bound of the error of the columns by kStepError.
Maps ErrorOfColumns(const BlockTrace& trace) {
    constexpr double kOfPlain = kBlockSteps * kBlockSteps * kPlainError;  // n^2 rho, see the top
    const Four part = specfun::InAllLanes(kOfPlain);
    Maps error = {part * trace.all.valueOfValue, part * trace.all.valueOfSlope,
                  part * trace.all.slopeOfValue, part * trace.all.slopeOfSlope};
    Maps adjoint = UnitMap();
    for (std::size_t k = trace.count; k-- > 0;) {
        error = Sum(error, Product(Magnitudes(adjoint), trace.local[k]));
        adjoint = Product(adjoint, trace.maps[k]);
    }
    return error;
}

MapOf<double> LaneOf(const Maps& maps, std::size_t lane) {
    return {maps.valueOfValue[lane], maps.valueOfSlope[lane], maps.slopeOfValue[lane],
            maps.slopeOfSlope[lane]};
}

/// With the bound of (1) in running_error.cpp: the errors of the columns and, of the block's
/// product with a solution, that of rounding.
template <typename Unit>
void PutBlocks(const LaneWalker<Unit>& at, const BlockTrace& trace, std::size_t block,
               BlockTable& table) {
    const Maps map = LeadingParts(at);
    const Maps bound = Sum(Magnitudes(map), ErrorOfColumns(trace));
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        Block& own = table[lane][block];
        for (std::size_t i = 0; i < own.columns.size(); ++i) {
            const Column<LanesOf<Unit>>& column = at.columns[i];
            own.columns[i] = {QuickTwoSum(column.value.high[lane], column.value.low[lane]),
                              QuickTwoSum(column.slope.high[lane], column.slope.low[lane])};
        }
        own.trace = {LaneOf(map, lane), LaneOf(bound, lane), trace.determinant[lane]};
    }
}

template <typename Unit>
int MapBlocksBy(const std::array<HypergeometricParameters, kLanes>& from, Route route,
                const Place& place, BlockTable& table) {
    const PlaceOf<LanesOf<Unit>> everywhere = InAllLanes<Unit>(place);
    LaneWalker<Unit> at = {};
    at.p = {Gather<Unit>({from[0].a, from[1].a, from[2].a, from[3].a}),
            Gather<Unit>({from[0].b, from[1].b, from[2].b, from[3].b}),
            Gather<Unit>({from[0].c, from[1].c, from[2].c, from[3].c})};
    int blocks = 0;
    double left = route.ups + route.downs;
    for (; left > 0 && blocks < kMostBlocks; ++blocks) {
        StartColumns(at);
        BlockTrace trace;
        for (int n = 0; n < kBlockSteps && left > 0; ++n, left -= 1) {
            const std::size_t next = NextTrack(route);
            const Maps before = LeadingParts(at);
            Take(TakeStep(at, next, route.tracks[next].raises, everywhere), before, trace);
        }
        PutBlocks(at, trace, static_cast<std::size_t>(blocks), table);
    }
    return blocks;
}

#ifdef KALVEX_FUSED_LANES
[[gnu::target("fma"), gnu::flatten]] int MapBlocksFused(
    const std::array<HypergeometricParameters, kLanes>& from, const Route& route,
    const Place& place, BlockTable& table) {
    return MapBlocksBy<Fused>(from, route, place, table);
}
#endif

}  // namespace

int MapBlocks(const std::array<HypergeometricParameters, kLanes>& from, const Route& route,
              const Place& place, BlockTable& table) {
#ifdef KALVEX_FUSED_LANES
    if (FeaturesOfProcessor().fma) return MapBlocksFused(from, route, place, table);
#endif
    return MapBlocksBy<Separate>(from, route, place, table);
}

}  // namespace kalvex::specfun
