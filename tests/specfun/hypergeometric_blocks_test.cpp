// The maps of the steps taken four at once against the same steps taken one by one.
#include <gtest/gtest.h>

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

using Single = WalkerOf<DoubleDouble, 1>;

Single Stepped(const HypergeometricParameters& from, Route route, const Place& place, bool second) {
    Single at;
    at.p = {from.a, from.b, from.c};
    (second ? at.columns[0].slope : at.columns[0].value) = {1, 0};
    for (double left = route.ups + route.downs; left > 0; left -= 1) {
        const std::size_t next = NextTrack(route);
        TakeStep(at, next, route.tracks[next].raises, place);
    }
    return at;
}

using Columns = Column<DoubleDouble>;

/// The blocks of one lane applied to a unit column and its twin.
Columns Applied(const std::array<Block, kMostBlocks>& lane, int blocks, bool second) {
    const double value = second ? 0 : 1;
    Columns at = {{value, 0}, {1 - value, 0}, value, 1 - value};
    for (int i = 0; i < blocks; ++i) {
        const auto& [first, other] = lane[static_cast<std::size_t>(i)];
        const Columns before = at;
        at.value = Add(Multiply(first.value, before.value), Multiply(other.value, before.slope));
        at.slope = Add(Multiply(first.slope, before.value), Multiply(other.slope, before.slope));
        at.twin = first.twin * before.twin + other.twin * before.twinSlope;
        at.twinSlope = first.twinSlope * before.twin + other.twinSlope * before.twinSlope;
    }
    return at;
}

/// What the two ways differ by must be covered by how far the twin is off.
void ExpectClose(DoubleDouble map, DoubleDouble stepped, double twin) {
    const double size = std::fabs(stepped.high);
    const double error = kTwinError * std::fabs(twin - stepped.high);
    EXPECT_LE(std::fabs(ToDouble(Subtract(map, stepped))), 0x1p-88 * size + error) << size;
}

TEST(HypergeometricBlocks, MapAsSingleStepsDo) {
    for (const Case& entry : kCases) {
        const Place place = PlaceAt({entry.z, 0}, TwoSum(1, -entry.z));
        std::array<HypergeometricParameters, kLanes> from;
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const double by = static_cast<double>(lane);
            from[lane] = {entry.from.a, PlusInteger(entry.from.b, by),
                          PlusInteger(entry.from.c, by)};
        }
        const Route route = RouteOf(entry.steps);
        BlockTable table;
        const int blocks = MapBlocks(from, route, place, table);
        ASSERT_EQ(blocks, std::ceil((route.ups + route.downs) / kBlockSteps));
        for (std::size_t i = 0; i < 2 * from.size(); ++i) {
            const bool second = i % 2 == 1;
            const Columns at = Applied(table[i / 2], blocks, second);
            const Columns stepped = Stepped(from[i / 2], route, place, second).columns[0];
            ExpectClose(at.value, stepped.value, at.twin);
            ExpectClose(at.slope, stepped.slope, at.twinSlope);
        }
    }
}

TEST(HypergeometricBlocks, KnowWhatAPoleCosts) {
    // c passes 0 at a distance of 2^-40: what is lost there is seen though plain arithmetic is
    // exact
    const Place place = PlaceAt({0.75, 0}, {0.25, 0});
    const HypergeometricParameters near = {{0, 0}, {1, 0}, {1, 0x1p-40}};
    const HypergeometricParameters far = {{0, 0}, {1, 0}, {1.25, 0}};
    BlockTable table;
    double errors[2] = {};
    for (int i = 0; i < 2; ++i) {
        const HypergeometricParameters& p = i == 0 ? near : far;
        ASSERT_EQ(MapBlocks({p, p, p, p}, RouteOf({-4, -9, -12}), place, table), 1);
        const Columns& column = table[0][0][0];
        errors[i] = std::fabs(column.twin / column.value.high - 1);
    }
    EXPECT_GT(errors[0], 0x1p20 * errors[1]);
}

// Where c-a is next to 0 the columns of a map are lost apart from each other, and a solution whose
// value and slope the first step keeps together is lost in their sum: the twins must say so.
TEST(HypergeometricBlocks, KnowWhatColumnsLose) {
    const Place place = PlaceAt({0.1875, 0}, {0.8125, 0});
    const double apart = 0x1p-49;
    const HypergeometricParameters from = {{-24.25, apart}, {-3.25, 0}, {-24.25, 0}};
    BlockTable table;
    ASSERT_EQ(MapBlocks({from, from, from, from}, RouteOf({-13, -2, -13}), place, table), 1);
    // F(c,b;c;z) = (1-z)^(-b)
    const DoubleDouble value = {1, 0};
    const DoubleDouble slope = Multiply(from.b, place.odds);
    const auto& [first, second] = table[0][0];
    const double twin = first.twin * value.high + second.twin * slope.high;
    const double lost = kTwinError * std::fabs(twin);
    EXPECT_GT(lost, 0x1p-52);
}

}  // namespace
}  // namespace kalvex::specfun
