#include "interp/piecewise.h"

#include <gtest/gtest.h>

#include <cmath>

#include "interp/diagnostic_lines.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

TEST(PiecewiseConstant, HoldsUpToAPointAndNeverLooksAtTheLastOne) {
    const Numbers x = {0, 1, 3, 4};
    const Numbers y = {10, 20, 30, 40};
    const Knots knots = MakeKnots(x);
    const std::pair<double, double> rows[] = {{-9, 10}, {0, 10},   {0.001, 20}, {1, 20}, {1.5, 30},
                                              {3, 30},  {3.5, 40}, {4, 40},     {9, 40}};
    for (const auto& [t, value] : rows)
        EXPECT_EQ(SPLINE_CONSTANT_VAL(knots, y, t), value) << t;
    EXPECT_EQ(SPLINE_CONSTANT_VAL(MakeKnots(Numbers{5}), Numbers{7}, 0), 7);
}

TEST(PiecewiseLinear, ContinuesItsEndPieces) {
    const Numbers x = {0, 1, 3};
    const Numbers y = {0, 2, 1};
    const Knots knots = MakeKnots(x);
    const std::pair<double, double> rows[] = {{-1, -2}, {0, 0}, {0.5, 1}, {1, 2}, {2, 1.5}, {5, 0}};
    for (const auto& [t, value] : rows) {
        EXPECT_EQ(SPLINE_LINEAR_VAL(knots, y, t).value, value) << t;
        EXPECT_EQ(SPLINE_LINEAR_VAL(knots, y, t).first, t < 1 ? 2 : -0.5) << t;
    }
}

TEST(PiecewiseLinear, DividesByZeroBetweenEqualKnots) {
    const Numbers x = {0, 1, 1};
    const Numbers y = {0, 1, 2};
    EXPECT_EQ(SPLINE_LINEAR_VAL(MakeKnots(x), y, 0.5).value, 0.5);
    EXPECT_FALSE(std::isfinite(SPLINE_LINEAR_VAL(MakeKnots(x), y, 1.5).value));
}

TEST(PiecewiseQuadratic, DrawsParabolasOverTriples) {
    const Numbers x = {0, 1, 2, 3, 5};
    const Numbers y = {0, 1, 4, 9, 1};
    const Knots knots = MakeKnots(x);
    SplineValue result;
    for (const double t : {-1.0, 0.0, 0.5, 1.0, 1.75}) {
        EXPECT_EQ(LinesOf(SPLINE_QUADRATIC_VAL(knots, y, t, result)), "none");
        EXPECT_DOUBLE_EQ(result.value, t * t) << t;
        EXPECT_DOUBLE_EQ(result.first, 2 * t) << t;
    }
    for (std::size_t i = 0; i < x.size(); ++i) {
        EXPECT_EQ(LinesOf(SPLINE_QUADRATIC_VAL(knots, y, x[i], result)), "none");
        EXPECT_DOUBLE_EQ(result.value, y[i]) << i;
    }
}

TEST(PiecewiseQuadratic, NamesItsFatalConditions) {
    const std::string heading = "\nSPLINE_QUADRATIC_VAL - Fatal error!\n";
    const struct {
        Numbers x;
        double t;
        std::string lines;
        StringId reason;
    } rows[] = {
        {{}, 0, heading + "  NDATA < 3.\n", StringId::QuadraticTooFew},
        {{1}, 0, heading + "  NDATA < 3.\n", StringId::QuadraticTooFew},
        {{1, 2}, 0, heading + "  NDATA < 3.\n", StringId::QuadraticTooFew},
        {{1, 2, 3, 4}, 0, heading + "  NDATA must be odd.\n", StringId::QuadraticEven},
        {{1, 1, 2}, 0, heading + "  T2 <= T1 or T3 <= T2.\n", StringId::QuadraticOrder},
        {{1, 3, 2}, 0, heading + "  T2 <= T1 or T3 <= T2.\n", StringId::QuadraticOrder},
        {{0, 1, 2, 3, 3}, 2.5, heading + "  T2 <= T1 or T3 <= T2.\n", StringId::QuadraticOrder},
    };
    for (const auto& row : rows) {
        SplineValue result;
        const Failure failure =
            SPLINE_QUADRATIC_VAL(MakeKnots(row.x), Numbers(row.x.size()), row.t, result);
        EXPECT_EQ(LinesOf(failure), row.lines);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->reason, row.reason);
        EXPECT_FALSE(failure->box);
    }
}

TEST(PiecewiseQuadratic, LooksOnlyAtTheTripleOfTheAbscissa) {
    const Numbers x = {0, 1, 2, 3, 3};
    SplineValue result;
    EXPECT_FALSE(SPLINE_QUADRATIC_VAL(MakeKnots(x), Numbers(5), 0.5, result));
}

}  // namespace
}  // namespace kalvex
