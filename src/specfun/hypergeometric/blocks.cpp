// The steps of a walk depend on each other, and each waits for the one before. Their maps do not:
// four stretches of the walk are multiplied out at once, one in each lane of a vector, as maps of
// some steps each that the walk then takes one after another.
#include "specfun/hypergeometric/blocks.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

using specfun::InAllLanes;

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

template <typename Unit>
void StartColumns(LaneWalker<Unit>& at) {
    const LanesOf<Unit> unit = InAllLanes<Unit>(DoubleDouble{1, 0});
    const LanesOf<Unit> zero = InAllLanes<Unit>(DoubleDouble{});
    at.columns = {Column<LanesOf<Unit>>{unit, zero, unit.high, zero.high},
                  Column<LanesOf<Unit>>{zero, unit, zero.high, unit.high}};
}

template <typename Unit>
Block BlockOf(const LaneWalker<Unit>& at, std::size_t lane) {
    Block block;
    for (std::size_t i = 0; i < block.size(); ++i) {
        const Column<LanesOf<Unit>>& column = at.columns[i];
        block[i] = {QuickTwoSum(column.value.high[lane], column.value.low[lane]),
                    QuickTwoSum(column.slope.high[lane], column.slope.low[lane]), column.twin[lane],
                    column.twinSlope[lane]};
    }
    return block;
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
        for (int n = 0; n < kBlockSteps && left > 0; ++n, left -= 1) {
            const std::size_t next = NextTrack(route);
            TakeStep(at, next, route.tracks[next].raises, everywhere);
        }
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            table[lane][static_cast<std::size_t>(blocks)] = BlockOf(at, lane);
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
