#include "interp/hermite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "interp/diagnostic_lines.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

double ValueAt(const Numbers& x, const Numbers& y, double t) {
    Numbers d;
    EXPECT_FALSE(SPLINE_PCHIP_SET(x, y, d));
    return SPLINE_HERMITE_VAL(MakeKnots(x), SPLINE_HERMITE_SET(x, y, d), t).value;
}

TEST(Hermite, HasZeroDerivativeWhereTheSlopesDisagree) {
    const Numbers x = {0, 1, 2, 3, 4, 5};
    const Numbers y = {0, 2, 1, 1, 3, 4};
    Numbers d;
    ASSERT_FALSE(SPLINE_PCHIP_SET(x, y, d));
    EXPECT_EQ(d[1], 0.0);
    EXPECT_EQ(d[2], 0.0);
    EXPECT_EQ(d[3], 0.0);
    EXPECT_DOUBLE_EQ(d[4], 2.0 / (1.0 / 2 + 1.0 / 1));  // equal spacing: the harmonic mean
}

TEST(Hermite, LimitsTheEndDerivatives) {
    Numbers d;
    // The slope changes from 1 to -8. The three-point estimate 5.5 exceeds three times the slope 1
    // and is limited to it.
    ASSERT_FALSE(SPLINE_PCHIP_SET(Numbers{0, 1, 2}, Numbers{0, 1, -7}, d));
    EXPECT_EQ(d[0], 3.0);
    // The three-point estimate -0.5 and the slope 1 differ in sign: the derivative is 0.
    ASSERT_FALSE(SPLINE_PCHIP_SET(Numbers{0, 1, 2}, Numbers{0, 1, 5}, d));
    EXPECT_EQ(d[0], 0.0);
    ASSERT_FALSE(SPLINE_PCHIP_SET(Numbers{0, 1, 2}, Numbers{0, 3, 5}, d));
    EXPECT_EQ(d[0], 3.5);
    EXPECT_EQ(d[2], 1.5);
    ASSERT_FALSE(SPLINE_PCHIP_SET(Numbers{0, 2}, Numbers{0, 3}, d));
    EXPECT_EQ(d, (Numbers{1.5, 1.5}));
}

TEST(Hermite, KeepsMonotoneDataMonotone) {
    std::mt19937 random(5);
    std::exponential_distribution<double> step(1.0);
    for (int run = 0; run < 50; ++run) {
        Numbers x = {0};
        Numbers y = {0};
        for (int i = 0; i < 12; ++i) {
            x.push_back(x.back() + 0.01 + step(random));
            y.push_back(y.back() + (random() % 4 == 0 ? 0.0 : step(random) * step(random)));
        }
        Numbers d;
        ASSERT_FALSE(SPLINE_PCHIP_SET(x, y, d));
        const Numbers c = SPLINE_HERMITE_SET(x, y, d);
        const Knots knots = MakeKnots(x);
        double before = 0.0;
        for (int i = 0; i <= 2000; ++i) {
            const double t = x.back() * i / 2000;
            const double value = SPLINE_HERMITE_VAL(knots, c, t).value;
            EXPECT_GE(value, before - 1e-13 * y.back()) << "run " << run << " at " << t;
            before = value;
        }
    }
}

TEST(Hermite, StaysFiniteForSlopesWhoseProductOverflows) {
    EXPECT_NEAR(ValueAt({0, 1, 2}, {0, 1e200, 3e200}, 1.0), 1e200, 1e185);
    EXPECT_TRUE(std::isfinite(ValueAt({0, 1, 2}, {0, 1e200, 3e200}, 0.5)));
}

TEST(Hermite, NamesItsFatalConditions) {
    const std::string heading = "\nSPLINE_PCHIP_SET - Fatal error!\n";
    const std::string few = "  Number of data points less than 2.\n";
    const std::string order = "  X array not strictly increasing.\n";
    const struct {
        Numbers x;
        std::string lines;
        StringId reason;
    } rows[] = {
        {{}, few, StringId::HermiteTooFew},
        {{1}, few, StringId::HermiteTooFew},
        {{1, 1}, order, StringId::HermiteOrder},
        {{1, 2, 0}, order, StringId::HermiteOrder},
    };
    for (const auto& row : rows) {
        Numbers d = {1};
        const Failure failure = SPLINE_PCHIP_SET(row.x, Numbers(row.x.size()), d);
        EXPECT_EQ(LinesOf(failure), heading + row.lines);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->reason, row.reason);
        EXPECT_TRUE(d.empty());
    }
}

}  // namespace
}  // namespace kalvex
