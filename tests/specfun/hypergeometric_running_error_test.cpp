// The bound of the rounding error of a walk: against the errors of walks whose end is known, and
// against errors put in on purpose.
#include <gtest/gtest.h>

#include <cmath>

#include "specfun/hypergeometric/series.h"
#include "specfun/hypergeometric/walk.h"

namespace kalvex::specfun {
namespace {

HypergeometricParameters Parameters(double a, double b, double c) {
    return {{a, 0}, {b, 0}, {c, 0}};
}

Place PlaceOf(double z) {
    return PlaceAt({z, 0}, TwoSum(1, -z));
}

struct Case {
    HypergeometricParameters from;
    HypergeometricParameters to;
    double z;
};

// Swinging, growing, next to 1, next to a pole in c and past c-a next to 0; some in blocks.
const Case kCases[] = {
    {Parameters(0.75, 0.5, 1.25), Parameters(-40.25, 41.5, 3.25), 0.5},
    {Parameters(0.75, 0.5, 1.25), Parameters(-240.25, 251.5, 3.25), 0.375},
    {Parameters(0.75, 0.5, 1.25), Parameters(30.75, 20.5, 31.25), 0.25},
    {Parameters(0.75, 0.5, 1.25), Parameters(13.75, -12.5, 3.25), 1 - 0x1p-30},
    {Parameters(0.75, 0.5, 1 + 0x1p-20), Parameters(-6.25, 7.5, -6 + 0x1p-20), 0.5},
    {Parameters(0.75, 0.5, 1.75 + 0x1p-20), Parameters(5.75, 4.5, -6.25 + 0x1p-20), 0.5},
};

Traveller Walked(const Case& entry, const HypergeometricPoint& start) {
    Traveller t = StartOf(entry.from, start);
    EXPECT_TRUE(WalkTo(entry.to, PlaceOf(entry.z), t)) << entry.z;
    return t;
}

// Any solution will do, so the error at the start is known exactly: it is what the starts differ
// by. Both walks are off by rounding as well.
TEST(HypergeometricRunningError, BoundsWhatTheStartIsOff) {
    constexpr double kOff = 0x1p-60;
    for (const Case& entry : kCases) {
        for (const bool isSlope : {false, true}) {
            HypergeometricPoint start = {{1, 0}, {0.25, 0}};
            const Traveller exact = Walked(entry, start);
            (isSlope ? start.slope : start.value).low = kOff;
            (isSlope ? start.slopeError : start.error) = kOff;
            const Traveller off = Walked(entry, start);
            ASSERT_EQ(off.exponent, exact.exponent);
            const Column<DoubleDouble>& own = off.at.columns[0];
            const double error = std::fabs(ToDouble(own.value - exact.at.columns[0].value));
            const double bound = ErrorOfValue(off.error, own);
            EXPECT_LE(error, bound) << entry.z << " " << isSlope;
            EXPECT_LE(bound, 0x1p6 * error + 0x1p-80 * std::fabs(own.value.high))
                << entry.z << " " << isSlope;
        }
    }
}

// To the end and back: the start is known, and so is the error of the whole way.
TEST(HypergeometricRunningError, BoundsWhatRoundingDoes) {
    int proved = 0;
    for (const Case& entry : kCases) {
        const HypergeometricPoint start = {{1, 0}, {0.25, 0}};
        Traveller t = Walked(entry, start);
        ASSERT_TRUE(WalkTo(entry.from, PlaceOf(entry.z), t));
        const Column<DoubleDouble>& own = t.at.columns[0];
        const double error =
            std::fabs(std::ldexp(ToDouble(own.value - Scale({1, 0}, -t.exponent)), t.exponent));
        const double bound = std::ldexp(ErrorOfValue(t.error, own), t.exponent);
        EXPECT_LE(error, bound) << entry.z;
        proved += bound < 0x1p-40 ? 1 : 0;
    }
    EXPECT_EQ(proved, 4);  // in the others another solution outgrows this one on its way back
}

// Next to a zero of the value the bound is that of the value still, not of the slope.
TEST(HypergeometricRunningError, IsThatOfTheValueNextToAZero) {
    const Place place = PlaceOf(0.5);
    const Case& entry = kCases[0];
    // F and another solution, combined so that the value at the end is next to 0
    const Traveller first = Walked(entry, {{1, 0}, {0, 0}});
    const Traveller second = Walked(entry, {{0, 0}, {1, 0}});
    ASSERT_EQ(first.exponent, second.exponent);
    const double ratio = -first.at.columns[0].value.high / second.at.columns[0].value.high;
    Traveller t = StartOf(entry.from, {{1, 0}, {ratio, 0}});
    ASSERT_TRUE(WalkTo(entry.to, place, t));
    const Column<DoubleDouble>& own = t.at.columns[0];
    ASSERT_LT(std::fabs(own.value.high), 0x1p-45 * std::fabs(own.slope.high));
    EXPECT_LT(ErrorOfValue(t.error, own), 0x1p-85 * std::fabs(own.slope.high));
    EXPECT_GT(ErrorOfValue(t.error, own), 0x1p-110 * std::fabs(own.slope.high));
}

// c passes 0 at a distance of 2^-40: what is lost there must be in the bound though plain
// arithmetic is exact.
TEST(HypergeometricRunningError, KnowsWhatAPoleCosts) {
    const Place place = PlaceOf(0.75);
    const HypergeometricPoint start = {{1, 0}, {0, 0}};  // of degree 0
    double relative[2] = {};
    for (const bool isNear : {false, true}) {
        const DoubleDouble c = isNear ? DoubleDouble{1, 0x1p-40} : DoubleDouble{1.25, 0};
        Traveller t = StartOf({{0, 0}, {1, 0}, c}, start);
        ASSERT_TRUE(WalkTo({{-4, 0}, {-8, 0}, c - 12}, place, t));
        const Column<DoubleDouble>& own = t.at.columns[0];
        relative[isNear ? 1 : 0] = ErrorOfValue(t.error, own) / std::fabs(own.value.high);
    }
    EXPECT_GT(relative[1], 0x1p20 * relative[0]);
}

TEST(HypergeometricRunningError, IsInfiniteWhereNothingIsProved) {
    // the other solution grows over the function by 2^68 in 100 steps
    const HypergeometricParameters from = Parameters(0.5, 0.5, 1.5);
    const Place place = PlaceOf(0.5);
    Traveller t = StartOf(from, SumHypergeometric(from, place.z, 0x1p-100));
    const bool arrives = WalkTo(Parameters(30.5, 30.5, 61.5), place, t);
    EXPECT_TRUE(!arrives || ErrorOfValue(t.error, t.at.columns[0]) >
                                0x1p-40 * std::fabs(t.at.columns[0].value.high));
}

}  // namespace
}  // namespace kalvex::specfun
