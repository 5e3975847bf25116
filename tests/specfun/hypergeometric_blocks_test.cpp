// The maps of the steps taken four at once against the same steps taken one by one.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric/blocks.h"

namespace kalvex::specfun {
namespace {

struct Case {
    HypergeometricParameters from;
    std::array<double, 3> steps;
    double z;
};

constexpr Case kCases[] = {
    {{{0.3, 0}, {0.7, 0}, {1.2, 0}}, {-40, -25, 30}, 0.4},
    {{{0.3, 0}, {0.7, 0}, {1.2, 0}}, {-40, 12, 9}, 0.7},
    {{{0.6, 0}, {1.1, 0}, {1.4, 0}}, {20, 13, 33}, 0.97},
    {{{0.6, 0}, {1.1, 0}, {1.4, 0}}, {-31, -30, -28}, 1 - 0x1p-30},
};

using Columns = Column<DoubleDouble>;
using Single = WalkerOf<DoubleDouble, 1>;

/// By the first steps of the route, as many as a block has.
Single Stepped(const HypergeometricParameters& from, Route route, const Place& place, bool second) {
    Single at;
    at.p = {from.a, from.b, from.c};
    (second ? at.columns[0].slope : at.columns[0].value) = {1, 0};
    const double steps = std::min<double>(kBlockSteps, route.ups + route.downs);
    for (double left = steps; left > 0; left -= 1) {
        const std::size_t next = NextTrack(route);
        static_cast<void>(TakeStep(at, next, route.tracks[next].raises, place));
    }
    return at;
}

/// The first of the blocks of a route, in all lanes.
std::array<Block, kLanes> FirstBlock(const std::array<HypergeometricParameters, kLanes>& from,
                                     const Route& route, const Place& place) {
    BlockTable table;
    EXPECT_EQ(MapBlocks(from, route, place, table),
              std::ceil((route.ups + route.downs) / kBlockSteps));
    return {table[0][0], table[1][0], table[2][0], table[3][0]};
}

void ExpectClose(DoubleDouble map, DoubleDouble stepped, double bound) {
    EXPECT_LE(std::fabs(ToDouble(map - stepped)), 2 * kStepError * bound)
        << map.high << " " << stepped.high;
}

TEST(HypergeometricBlocks, MapAsSingleStepsDo) {
    for (const Case& entry : kCases) {
        const Place place = PlaceAt({entry.z, 0}, TwoSum(1, -entry.z));
        std::array<HypergeometricParameters, kLanes> from;
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const double by = static_cast<double>(lane);
            from[lane] = {entry.from.a, entry.from.b + by, entry.from.c + by};
        }
        const Route route = RouteOf(entry.steps);
        const std::array<Block, kLanes> blocks = FirstBlock(from, route, place);
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const auto& [columns, trace] = blocks[lane];
            const Columns first = Stepped(from[lane], route, place, false).columns[0];
            ExpectClose(columns[0].value, first.value, trace.bound.valueOfValue);
            ExpectClose(columns[0].slope, first.slope, trace.bound.slopeOfValue);
            const Columns second = Stepped(from[lane], route, place, true).columns[0];
            ExpectClose(columns[1].value, second.value, trace.bound.valueOfSlope);
            ExpectClose(columns[1].slope, second.slope, trace.bound.slopeOfSlope);
            EXPECT_LT(trace.bound.valueOfValue, 0x1p40 * std::fabs(first.value.high)) << entry.z;
        }
    }
}

TEST(HypergeometricBlocks, HaveTheDeterminantOfTheirEntries) {
    for (const Case& entry : kCases) {
        const Place place = PlaceAt({entry.z, 0}, TwoSum(1, -entry.z));
        const HypergeometricParameters& p = entry.from;
        const Block block = FirstBlock({p, p, p, p}, RouteOf(entry.steps), place)[2];
        const auto& [first, second] = block.columns;
        const DoubleDouble product = first.value * second.slope;
        const double determinant = (product - second.value * first.slope).high;
        const MapOf<double>& bound = block.trace.bound;
        const double error = kStepError * (bound.valueOfValue * std::fabs(second.slope.high) +
                                           bound.slopeOfSlope * std::fabs(first.value.high) +
                                           bound.valueOfSlope * std::fabs(first.slope.high) +
                                           bound.slopeOfValue * std::fabs(second.value.high));
        EXPECT_NEAR(block.trace.determinant, determinant, 1e-13 * std::fabs(determinant) + error)
            << entry.z;
    }
}

// Where c-a is next to 0 the columns of a map are lost apart from each other, and a solution whose
// value and slope the first step keeps together is lost in their sum: the bound must say so.
TEST(HypergeometricBlocks, KnowWhatColumnsLose) {
    const Place place = PlaceAt({0.1875, 0}, {0.8125, 0});
    const double apart = 0x1p-49;
    const HypergeometricParameters from = {{-24.25, apart}, {-3.25, 0}, {-24.25, 0}};
    const Block block = FirstBlock({from, from, from, from}, RouteOf({-13, -2, -13}), place)[0];
    // F(c,b;c;z) = (1-z)^(-b)
    const double slope = (from.b * place.odds).high;
    const MapOf<double>& bound = block.trace.bound;
    const double lost = kStepError * (bound.valueOfValue + bound.valueOfSlope * std::fabs(slope));
    EXPECT_GT(lost, 0x1p-52);
}

}  // namespace
}  // namespace kalvex::specfun
