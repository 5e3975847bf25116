// The maps of the steps taken four at once against the same steps taken one by one.
#include "specfun/hypergeometric_blocks.h"

#include <gtest/gtest.h>

#include <cmath>

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

/// The two estimates of error together must cover what the two ways differ by.
void ExpectClose(DoubleDouble map, double error, DoubleDouble stepped, double size) {
    EXPECT_LE(std::fabs(ToDouble(Subtract(map, stepped))), 0x1p-88 * size + error) << size;
}

/// The blocks of one lane applied to a unit column, and the error of the last of them.
Block::Column Applied(const std::array<Block, kMostBlocks>& lane, int blocks, bool second) {
    Block::Column at = {{second ? 0.0 : 1.0, 0}, {second ? 1.0 : 0.0, 0}};
    for (int i = 0; i < blocks; ++i) {
        const auto& [first, other] = lane[static_cast<std::size_t>(i)].columns;
        const double u = std::fabs(at.value.high);
        const double v = std::fabs(at.slope.high);
        const DoubleDouble value =
            Add(Multiply(first.value, at.value), Multiply(other.value, at.slope));
        at.slope = Add(Multiply(first.slope, at.value), Multiply(other.slope, at.slope));
        at.value = value;
        at.valueError = first.valueError * u + other.valueError * v;
        at.slopeError = first.slopeError * u + other.slopeError * v;
    }
    return at;
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
            const Block::Column at = Applied(table[i / 2], blocks, second);
            const Single single = Stepped(from[i / 2], route, place, second);
            const auto& stepped = single.columns[0];
            ExpectClose(at.value, at.valueError, stepped.value, std::fabs(stepped.value.high));
            ExpectClose(at.slope, at.slopeError, stepped.slope, std::fabs(stepped.slope.high));
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
        const Block::Column& column = table[0][0].columns[0];
        errors[i] = column.valueError / std::fabs(column.value.high);
    }
    EXPECT_GT(errors[0], 0x1p20 * errors[1]);
}

TEST(HypergeometricPositive, AgreesWithTwiceThePrecision) {
    const struct {
        HypergeometricParameters p;
        double z;
    } cases[] = {{{{20.5, 0}, {31, 0}, {52.25, 0}}, 0.8},
                 {{{140, 0}, {95.3, 0}, {236, 0}}, 0.9},
                 {{{3, 0}, {400, 0}, {405.5, 0}}, 0.93}};
    for (const auto& entry : cases) {
        const HypergeometricPoint plain = SumOfPositive(entry.p, entry.z, 1100);
        const HypergeometricPoint full = SumHypergeometric(entry.p, {entry.z, 0}, 0x1p-90);
        ASSERT_FALSE(plain.failed || full.failed);
        const double difference = ToDouble(Subtract(plain.value, full.value));
        EXPECT_LE(std::fabs(difference), plain.error);
        EXPECT_NEAR(plain.slope.high / full.slope.high, 1, 1e-12);
    }
}

}  // namespace
}  // namespace kalvex::specfun
