#include "interp/cubic_spline.h"

#include <gtest/gtest.h>

#include <cmath>

#include "interp/diagnostic_lines.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

const Numbers kX = {0, 1, 2.5, 3, 4.5};
const Numbers kY = {1, 3, 2, 2, 5};

TEST(CubicSpline, KeepsItsEndConditions) {
    const Knots knots = MakeKnots(kX);
    for (std::int32_t begin = 0; begin <= 2; ++begin) {
        for (std::int32_t end = 0; end <= 2; ++end) {
            Numbers ypp;
            ASSERT_FALSE(SPLINE_CUBIC_SET(kX, kY, {begin, 0.75, end, -2.0}, ypp));
            const SplineValue left = SPLINE_CUBIC_VAL(knots, kY, ypp, kX.front());
            const SplineValue right = SPLINE_CUBIC_VAL(knots, kY, ypp, kX.back());
            if (begin == 0) {
                EXPECT_NEAR(ypp[0], ypp[1], 1e-14);
            }
            if (begin == 1) {
                EXPECT_NEAR(left.first, 0.75, 1e-14);
            }
            if (begin == 2) {
                EXPECT_NEAR(left.second, 0.75, 1e-14);
            }
            if (end == 0) {
                EXPECT_NEAR(ypp[3], ypp[4], 1e-14);
            }
            if (end == 1) {
                EXPECT_NEAR(right.first, -2.0, 1e-14);
            }
            if (end == 2) {
                EXPECT_NEAR(right.second, -2.0, 1e-14);
            }
            for (std::size_t i = 0; i < kX.size(); ++i)
                EXPECT_NEAR(SPLINE_CUBIC_VAL(knots, kY, ypp, kX[i]).value, kY[i], 1e-14);
        }
    }
}

TEST(CubicSpline, HasZeroBendAtTheEndsWhenItIsNatural) {
    Numbers ypp;
    ASSERT_FALSE(SPLINE_CUBIC_SET(kX, kY, {2, 0.0, 2, 0.0}, ypp));
    EXPECT_EQ(ypp.front(), 0.0);
    EXPECT_EQ(ypp.back(), 0.0);
    Numbers free;
    ASSERT_FALSE(SPLINE_CUBIC_SET(kX, kY, {0, 0.0, 0, 0.0}, free));
    EXPECT_GT(std::fabs(free.front()), 0.1);
}

TEST(CubicSpline, IsSmoothAtItsKnots) {
    Numbers ypp;
    ASSERT_FALSE(SPLINE_CUBIC_SET(kX, kY, {1, 2.0, 0, 0.0}, ypp));
    const Knots knots = MakeKnots(kX);
    for (std::size_t i = 1; i + 1 < kX.size(); ++i) {
        const SplineValue before = SPLINE_CUBIC_VAL(knots, kY, ypp, std::nextafter(kX[i], -1));
        const SplineValue behind = SPLINE_CUBIC_VAL(knots, kY, ypp, kX[i]);
        EXPECT_NEAR(before.value, behind.value, 1e-13);
        EXPECT_NEAR(before.first, behind.first, 1e-13);
        EXPECT_NEAR(before.second, behind.second, 1e-13);
    }
}

TEST(CubicSpline, IsAStraightLineThroughTwoPointsWithoutConditions) {
    Numbers ypp;
    ASSERT_FALSE(SPLINE_CUBIC_SET(Numbers{1, 3}, Numbers{2, 8}, {}, ypp));
    EXPECT_EQ(ypp, (Numbers{0, 0}));
    EXPECT_EQ(SPLINE_CUBIC_VAL(MakeKnots(Numbers{1, 3}), Numbers{2, 8}, ypp, 5).value, 14);
}

TEST(CubicSpline, NamesItsFatalConditions) {
    const std::string heading = "\nSPLINE_CUBIC_SET - Fatal error!\n";
    const std::string few = "  The number of data points N must be at least 2.\n";
    const std::string order = "  The knots must be strictly increasing, but\n";
    const struct {
        Numbers x;
        EndConditions ends;
        std::string lines;
        StringId reason;
    } rows[] = {
        {{}, {}, few, StringId::CubicTooFew},
        {{1}, {7, 0, 7, 0}, few, StringId::CubicTooFew},
        {{0, 2, 1, 0}, {9, 0, 0, 0}, order + "  T(2) = 2\n  T(3) = 1\n", StringId::CubicOrder},
        {{1.0 / 3, 1.0 / 3},
         {},
         order + "  T(1) = 0.333333\n  T(2) = 0.333333\n",
         StringId::CubicOrder},
        {{1e7, -2.5e-7}, {}, order + "  T(1) = 1e+07\n  T(2) = -2.5e-07\n", StringId::CubicOrder},
        {{0, 1},
         {3, 0, 5, 0},
         "  IBCBEG must be 0, 1 or 2.\n  The input value is 3.\n",
         StringId::CubicFlag},
        {{0, 1},
         {2, 0, -1, 0},
         "  IBCEND must be 0, 1 or 2.\n  The input value is -1.\n",
         StringId::CubicFlag},
        {{0, 5e-324},
         {1, 0, 1, 0},
         "  The linear system could not be solved.\n",
         StringId::CubicUnsolved},
    };
    for (const auto& row : rows) {
        Numbers ypp = {1, 2, 3};
        const Failure failure = SPLINE_CUBIC_SET(row.x, Numbers(row.x.size()), row.ends, ypp);
        EXPECT_EQ(LinesOf(failure), heading + row.lines);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->reason, row.reason);
        EXPECT_TRUE(ypp.empty());
    }
}

}  // namespace
}  // namespace kalvex
