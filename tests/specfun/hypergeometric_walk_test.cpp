// Walks along the contiguous relations, and what is known beforehand of the solutions beside the
// function.
#include <gtest/gtest.h>

#include <cmath>

#include "specfun/hypergeometric/growth.h"
#include "specfun/hypergeometric/series.h"
#include "specfun/hypergeometric/stretches.h"
#include "specfun/hypergeometric/walk.h"

namespace kalvex::specfun {
namespace {

HypergeometricParameters Parameters(double a, double b, double c) {
    return {{a, 0}, {b, 0}, {c, 0}};
}

Place PlaceOf(double z) {
    return PlaceAt({z, 0}, TwoSum(1, -z));
}

TEST(HypergeometricSeries, FailsWhereItsTailDoesNotEnd) {
    const struct {
        HypergeometricParameters p;
        double z;
        bool fails;
    } cases[] = {{Parameters(0.5, 0.5, 4), 0.9, false},
                 {Parameters(0.5, 0.5, 4), 0.9999, true},  // terms like k^-4: 2^-52 after 8000
                 {Parameters(0.5, 0.5, 10), 0.9999, false},
                 {Parameters(-400, 0.5, 0.25), 1.5, false}};  // a polynomial ends everywhere
    for (const auto& entry : cases) {
        const bool failed = SumHypergeometric(entry.p, {entry.z, 0}, 0x1p-62).failed;
        EXPECT_EQ(failed, entry.fails) << entry.p.c.high << " at " << entry.z;
    }
}

TEST(HypergeometricWalk, ComesBackToItsStart) {
    const HypergeometricParameters from = Parameters(0.75, 0.5, 1.25);
    const struct {
        HypergeometricParameters far;
        double z;
    } cases[] = {{Parameters(-40.25, 41.5, 3.25), 0.5},       // single steps
                 {Parameters(-240.25, 251.5, 3.25), 0.375},   // blocks
                 {Parameters(-3240.25, 3251.5, 3.25), 0.7}};  // legs
    for (const auto& entry : cases) {
        const Place place = PlaceOf(entry.z);
        const HypergeometricPoint start = SumHypergeometric(from, place.z, 0x1p-100);
        Traveller t = StartOf(from, start);
        ASSERT_TRUE(WalkTo(entry.far, place, t));
        const HypergeometricPoint there = PointOf(t);
        EXPECT_LT(there.error,
                  0x1p-80 * (std::fabs(there.value.high) + std::fabs(there.slope.high)));
        ASSERT_TRUE(WalkTo(from, place, t));
        const HypergeometricPoint back = PointOf(t);
        EXPECT_EQ(back.exponent, 0);
        EXPECT_LT(std::fabs(ToDouble(back.value - start.value)), 0x1p-80);
        EXPECT_LT(std::fabs(ToDouble(back.slope - start.slope)), 0x1p-80);
    }
}

TEST(HypergeometricWalk, KnowsWhenNothingIsLeft) {
    const HypergeometricParameters from = Parameters(0.5, 0.5, 1.5);
    const Place place = PlaceOf(0.9375);
    Traveller t = StartOf(from, SumHypergeometric(from, place.z, 0x1p-100));
    EXPECT_FALSE(WalkTo(Parameters(400.5, 300.5, 702.5), place, t));
}

TEST(HypergeometricWalk, EndsBeforeItIsTooLong) {
    const HypergeometricParameters from = Parameters(0.5, 0.5, 1.5);
    const Place place = PlaceOf(0.5);
    const Traveller start = StartOf(from, SumHypergeometric(from, place.z, 0x1p-100));
    for (const double far : {1e5 + 0.5, 1e15, 1e300}) {
        Traveller t = start;
        EXPECT_FALSE(WalkTo(Parameters(far, 0.5, 1.5), place, t)) << far;
    }
}

TEST(HypergeometricStretches, LeadFromEndToEnd) {
    const HypergeometricParameters from = Parameters(0.25, 0.5, 1.25);
    const std::array<double, 3> all = {-401, 307, 203};
    const HypergeometricParameters to = Beyond(from, all, 1);
    for (const LeftOver way : {LeftOver::kSpread, LeftOver::kFirst, LeftOver::kLast}) {
        const Stretches stretches = StretchesOf(from, all, way);
        EXPECT_EQ(stretches.starts[0].a.high, from.a.high);
        double between = 0;
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const HypergeometricParameters end = Beyond(stretches.starts[lane], stretches.steps, 1);
            const bool isLast = lane + 1 == kLanes;
            const HypergeometricParameters next = isLast ? to : stretches.starts[lane + 1];
            const double left = Length(StepsBetween(end, next));
            if (isLast) {
                EXPECT_EQ(left, 0);
            }
            if (lane == 0 && way == LeftOver::kLast) {
                EXPECT_EQ(left, 0);
            }
            if (lane == 1 && way == LeftOver::kFirst) {
                EXPECT_EQ(left, 0);
            }
            between += left;
        }
        EXPECT_LE(between, 9);
    }
}

TEST(HypergeometricStretches, TellWhereTheyCross) {
    // c-a stays 1, c less a multiple of four steps
    const HypergeometricParameters from = Parameters(1, 0.5, 2);
    const std::array<double, 3> all = {402, 0, 402};
    const HypergeometricParameters to = Beyond(from, all, 1);
    Stretches stretches = StretchesOf(from, all, LeftOver::kFirst);
    EXPECT_FALSE(Crosses(stretches, from, to));
    stretches.starts[2] = Beyond(stretches.starts[2], {1, 0, 0}, 1);
    EXPECT_TRUE(Crosses(stretches, from, to));
}

/// D of the exponents' differences.
double Discriminating(const HypergeometricParameters& p, double z) {
    const double l = p.c.high - 1;
    const double m = p.c.high - p.a.high - p.b.high;
    const double n = p.a.high - p.b.high;
    return l * l * (1 - z) + m * m * z - n * n * z * (1 - z);
}

TEST(HypergeometricOutgrown, FallsByTheIntegrand) {
    constexpr double kStep = 0x1p-20;
    const HypergeometricParameters cases[] = {
        Parameters(164, 177.5, 341.75), Parameters(-74, 829, 753.5), Parameters(662, 4, 666),
        Parameters(-218, 336, 336.5),   Parameters(20, 30, 700),     Parameters(-13, 80, 400)};
    for (const HypergeometricParameters& p : cases) {
        for (const double z : {0.03125, 0.0625, 0.125}) {
            const double d = Discriminating(p, z);
            ASSERT_GT(d, 0);
            const double slope =
                (Outgrown(p, z + kStep, 1 - z - kStep) - Outgrown(p, z - kStep, 1 - z + kStep)) /
                (2 * kStep);
            EXPECT_NEAR(slope / (-std::sqrt(d) / (z * (1 - z))), 1, 1e-5) << p.a.high << " " << z;
        }
    }
}

TEST(HypergeometricOutgrown, SlopeIsThatOfTheMinimalSolution) {
    for (const double z : {0.125, 0.5}) {
        const HypergeometricParameters p = Parameters(164, 177.5, 341.75);
        const HypergeometricPoint sum = SumHypergeometric(p, {z, 0}, 0x1p-60);
        EXPECT_NEAR(SlopeOfMinimal(p, z, 1 - z) / (sum.slope.high / sum.value.high), 1, 1e-3);
    }
}

TEST(HypergeometricOutgrown, IsNothingFromTheTurningPointOn) {
    const HypergeometricParameters p = Parameters(-74, 829, 753.5);
    double below = 0;
    double above = 1;
    for (int i = 0; i < 60; ++i) {
        const double middle = (below + above) / 2;
        (Discriminating(p, middle) > 0 && middle < 0.9 ? below : above) = middle;
    }
    EXPECT_GT(Outgrown(p, below * 0.99, 1 - below * 0.99), 0.1);
    EXPECT_NEAR(Outgrown(p, below * (1 - 1e-12), 1 - below * (1 - 1e-12)), 0, 1e-3);
    EXPECT_EQ(Outgrown(p, above * (1 + 1e-9), 1 - above * (1 + 1e-9)), 0);
}

TEST(HypergeometricOutgrown, ChangesSignWithTheExponentAtZero) {
    // the same differences of the exponents, l = 341 at 0
    const double up = Outgrown(Parameters(164, 177.5, 342), 0.25, 0.75);
    const double down = Outgrown(Parameters(164 - 341, 177.5 - 341, -340), 0.25, 0.75);
    EXPECT_GT(up, 100);
    EXPECT_NEAR(down, -up, 1e-9);
}

TEST(HypergeometricOverflows, IsCertainOnlyFarBeyondTheRange) {
    // F(a,c;c;x) = (1-x)^-a for w = 1-x = 2^-14, beyond the range from a = 74 on, and neighbours
    const double w = 0x1p-14;
    for (const double c : {40.25, -40.25}) {
        EXPECT_FALSE(Overflows(Parameters(60, c + 0.5, c), 1 - w)) << c;
        EXPECT_FALSE(Overflows(Parameters(75, c + 0.5, c), 1 - w)) << c;
        EXPECT_TRUE(Overflows(Parameters(120, c + 0.5, c), 1 - w)) << c;
    }
    // what is small by its factor is not beyond the range for all that w^s is
    EXPECT_FALSE(Overflows(Parameters(1e-300, 90, 1.5), 1 - w));
    // nothing is certain away from 1, nor for polynomials and powers that w^s is no part of
    EXPECT_FALSE(Overflows(Parameters(4000, 4000, 1.5), 0.5));
    EXPECT_FALSE(Overflows(Parameters(-100, 300, 20), 1 - w));
    EXPECT_FALSE(Overflows(Parameters(1e300, 1e300, 1.5), 1 - w));
}

}  // namespace
}  // namespace kalvex::specfun
