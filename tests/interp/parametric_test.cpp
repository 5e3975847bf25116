#include "interp/parametric.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "interp/diagnostic_lines.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

const Numbers kX = {0, 1, 2.5, 3, 4.5, 6};
const Numbers kY = {1, 3, 2, 2.5, 5, 4};

template <typename Routine>
double ValueOf(const Routine& routine) {
    double value = 0.0;
    EXPECT_EQ(LinesOf(routine(value)), "none");
    return value;
}

double Uniform(const Numbers& x, const Numbers& y, double t) {
    return ValueOf([&](double& v) { return SPLINE_OVERHAUSER_UNI_VAL(MakeKnots(x), y, t, v); });
}

double Nonuniform(const Numbers& x, const Numbers& y, double t) {
    return ValueOf([&](double& v) { return SPLINE_OVERHAUSER_NONUNI_VAL(MakeKnots(x), y, t, v); });
}

double Blended(const Numbers& x, const Numbers& y, double t) {
    return ValueOf([&](double& v) {
        return SPLINE_OVERHAUSER_VAL(1, MakeKnots(x), y, t, {&v, 1});
    });
}

double LinearAt(double t) {
    std::size_t i = 0;
    while (i + 2 < kX.size() && t >= kX[i + 1])
        ++i;
    return kY[i] + (kY[i + 1] - kY[i]) * (t - kX[i]) / (kX[i + 1] - kX[i]);
}

TEST(BSpline, IsTheBetaSplineWithoutBiasAndTension) {
    const Knots knots = MakeKnots(kX);
    for (double t = -2.0; t <= 8.0; t += 0.03125)
        EXPECT_EQ(SPLINE_B_VAL(knots, kY, t), SPLINE_BETA_VAL(1.0, 0.0, knots, kY, t)) << t;
}

TEST(BSpline, TakesAWeightedMeanAtAPointAndThePointItselfAtTheEnds) {
    const Knots knots = MakeKnots(kX);
    EXPECT_DOUBLE_EQ(SPLINE_B_VAL(knots, kY, 1.0), (1.0 + 4 * 3.0 + 2.0) / 6);
    EXPECT_DOUBLE_EQ(SPLINE_B_VAL(knots, kY, 0.0), 1.0);
    EXPECT_DOUBLE_EQ(SPLINE_B_VAL(knots, kY, 6.0), 4.0);
    const Numbers two = {2, 5};
    EXPECT_DOUBLE_EQ(SPLINE_B_VAL(MakeKnots(Numbers{0, 1}), two, 0.25), 2.75);
    EXPECT_DOUBLE_EQ(SPLINE_B_VAL(MakeKnots(Numbers{0, 1}), two, 3.0), 11.0);
}

TEST(BetaSpline, ApproachesThePolylineWithGrowingTension) {
    const Knots knots = MakeKnots(kX);
    double distanceAtPoints = 10.0;
    for (const double tension : {0.0, 10.0, 1e3, 1e6, 1e9}) {
        double atPoints = 0.0;
        for (std::size_t i = 0; i < kX.size(); ++i)
            atPoints = std::max(atPoints,
                                std::fabs(SPLINE_BETA_VAL(1.0, tension, knots, kY, kX[i]) - kY[i]));
        EXPECT_LT(atPoints, distanceAtPoints) << tension;
        distanceAtPoints = atPoints;
        if (tension < 1e6) continue;
        // Between two points a smooth step remains, within a tenth of their difference of the line.
        for (double t = 0.0; t <= 6.0; t += 0.01)
            EXPECT_NEAR(SPLINE_BETA_VAL(1.0, tension, knots, kY, t), LinearAt(t),
                        0.0963 * 2.5 + 1e-5)
                << t;
        for (std::size_t i = 0; i + 1 < kX.size(); ++i) {
            const double middle = (kX[i] + kX[i + 1]) / 2;
            EXPECT_NEAR(SPLINE_BETA_VAL(1.0, tension, knots, kY, middle), LinearAt(middle), 1e-4);
        }
    }
    EXPECT_LT(distanceAtPoints, 1e-7);
}

TEST(BetaSpline, JoinsItsPiecesWithSlopesInTheRatioOfTheBias) {
    const Numbers x = {0, 1, 2, 3, 4};
    const Numbers y = {0, 3, 1, 4, 2};
    const Knots knots = MakeKnots(x);
    const double h = 1e-6;
    for (const double bias : {0.5, 1.0, 3.0}) {
        const auto at = [&](double t) { return SPLINE_BETA_VAL(bias, 2.0, knots, y, t); };
        const double joint = at(2.0);
        EXPECT_NEAR(at(2.0 - 1e-9), joint, 1e-7);
        const double before = (joint - at(2.0 - h)) / h;
        const double behind = (at(2.0 + h) - joint) / h;
        EXPECT_NEAR(behind, bias * before, 1e-4 * (1 + std::fabs(behind))) << bias;
    }
}

TEST(BetaSpline, HasNoValueWhereItsWeightsAreDividedByZero) {
    EXPECT_FALSE(std::isfinite(SPLINE_BETA_VAL(1.0, -12.0, MakeKnots(kX), kY, 2.0)));
}

TEST(Overhauser, GoesThroughItsPoints) {
    for (std::size_t i = 0; i < kX.size(); ++i) {
        EXPECT_DOUBLE_EQ(Uniform(kX, kY, kX[i]), kY[i]) << i;
        EXPECT_DOUBLE_EQ(Nonuniform(kX, kY, kX[i]), kY[i]) << i;
        EXPECT_DOUBLE_EQ(Blended(kX, kY, kX[i]), kY[i]) << i;
    }
}

TEST(Overhauser, NonuniformAndBlendedParabolasAreTheSameCurve) {
    for (double t = -1.0; t <= 7.0; t += 0.0625)
        EXPECT_NEAR(Nonuniform(kX, kY, t), Blended(kX, kY, t), 1e-12) << t;
}

TEST(Overhauser, AllThreeAgreeForEquallySpacedPoints) {
    const Numbers x = {0, 1, 2, 3, 4, 5};
    for (double t = -1.0; t <= 6.0; t += 0.0625) {
        EXPECT_NEAR(Uniform(x, kY, t), Nonuniform(x, kY, t), 1e-12) << t;
        EXPECT_NEAR(Uniform(x, kY, t), Blended(x, kY, t), 1e-12) << t;
    }
}

TEST(Overhauser, IsTheParabolaThroughThreePoints) {
    const Numbers x = {0, 1, 3};
    const Numbers y = {0, 1, 9};
    for (double t = -1.0; t <= 4.0; t += 0.25) {
        EXPECT_NEAR(Nonuniform(x, y, t), t * t, 1e-13) << t;
        EXPECT_NEAR(Blended(x, y, t), t * t, 1e-13) << t;
    }
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_DOUBLE_EQ(Uniform(x, y, x[i]), y[i]);
}

TEST(Overhauser, NamesItsFatalConditions) {
    double v = 0.0;
    for (const Numbers& x : {Numbers{}, Numbers{1}, Numbers{1, 2}}) {
        const Numbers y(x.size());
        EXPECT_EQ(LinesOf(SPLINE_OVERHAUSER_UNI_VAL(MakeKnots(x), y, 0, v)),
                  "\nSPLINE_OVERHAUSER_UNI_VAL - Fatal error!\n  NDATA < 3.\n");
        EXPECT_EQ(LinesOf(SPLINE_OVERHAUSER_NONUNI_VAL(MakeKnots(x), y, 0, v)),
                  "\nSPLINE_OVERHAUSER_NONUNI_VAL - Fatal error!\n  NDATA < 3.\n");
        EXPECT_EQ(LinesOf(CheckOverhauser(x)),
                  "\nSPLINE_OVERHAUSER_VAL - Fatal error!\n  NDATA < 3.\n");
    }
    // The order of the abscissas is checked before their number.
    for (const Numbers& x : {Numbers{1, 1}, Numbers{2, 1}, Numbers{0, 1, 1}, Numbers{0, 2, 1, 3}}) {
        const Failure failure = CheckOverhauser(x);
        EXPECT_EQ(LinesOf(failure),
                  "\nSPLINE_OVERHAUSER_VAL - Fatal error!\n"
                  "  The data abscissas are not strictly ascending.\n");
        EXPECT_EQ(failure->reason, StringId::OverhauserOrder);
    }
    EXPECT_FALSE(CheckOverhauser(Numbers{0, 1, 2}));
}

TEST(Overhauser, NamesAPieceThatCannotBe) {
    const std::string heading = "\nSPLINE_OVERHAUSER_NONUNI_VAL - Fatal error!\n";
    EXPECT_EQ(LinesOf(CheckOverhauserPiece(0, 5)),
              heading +
                  "  Nonsensical value of LEFT = 0\n  but 0 < LEFT < NDATA = 5\n"
                  "  is required.\n");
    EXPECT_EQ(LinesOf(CheckOverhauserPiece(5, 5)),
              heading +
                  "  Nonsensical value of LEFT = 5\n  but 0 < LEFT < NDATA = 5\n"
                  "  is required.\n");
    EXPECT_FALSE(CheckOverhauserPiece(1, 5));
    EXPECT_FALSE(CheckOverhauserPiece(4, 5));
}

TEST(Parabola, TakesEachDimensionOfItsPoints) {
    const Numbers x = {0, 1, 3, 4};
    const Numbers y = {7, 0, 0, 1, 0, 9, 1, 16};  // (anything, t^2)
    double v[2] = {};
    EXPECT_EQ(LinesOf(PARABOLA_VAL2(2, x, y, 2, 2.0, v)), "none");
    EXPECT_DOUBLE_EQ(v[1], 4.0);
    EXPECT_DOUBLE_EQ(v[0], -1.0 / 3);
}

TEST(Parabola, NamesItsFatalConditions) {
    const std::string heading = "\nPARABOLA_VAL2 - Fatal error!\n";
    const std::string order = heading + "  T2 <= T1 or T3 <= T2.\n";
    const struct {
        std::int32_t dimensions;
        Numbers x;
        std::int32_t left;
        std::string lines;
    } rows[] = {
        {0, {0, 1, 2}, 1, heading + "  NDIM < 1.\n"},
        {1, {0, 1, 2}, -1, heading + "  LEFT < 0.\n"},
        {1, {0, 1, 2}, 0, heading + "  LEFT < 0.\n"},
        {1, {0, 1, 2}, 2, heading + "  NDATA-2 < LEFT.\n"},
        {1, {}, 1, heading + "  NDATA-2 < LEFT.\n"},
        {1, {0, 0, 2}, 1, order + "  T1 = 0\n  T2 = 0\n  T3 = 2\n"},
        {1, {0, 1.0 / 3, 0.25}, 1, order + "  T1 = 0\n  T2 = 0.333333\n  T3 = 0.25\n"},
    };
    for (const auto& row : rows) {
        double v = 0.0;
        EXPECT_EQ(LinesOf(PARABOLA_VAL2(row.dimensions, row.x, Numbers(row.x.size()), row.left, 0.5,
                                        {&v, 1})),
                  row.lines);
    }
}

}  // namespace
}  // namespace kalvex
