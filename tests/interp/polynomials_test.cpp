// The three polynomials: each by itself, and where they have to agree.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "interp/diagnostic_lines.h"
#include "interp/divided_differences.h"
#include "interp/lagrange.h"
#include "interp/least_squares.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double Least(const Numbers& x, const Numbers& y, std::int32_t terms, double t) {
    Work work;
    LeastSquaresFit fit;
    EXPECT_EQ(LinesOf(LEAST_SET(x, y, {}, terms, fit, work)), "none");
    return LEAST_VAL(fit, t);
}

double Newton(const Numbers& x, const Numbers& y, double t) {
    Work work;
    DifferenceTable table;
    EXPECT_EQ(LinesOf(DATA_TO_DIF(x, y, table, work)), "none");
    return DIF_VAL(x, table, t, work);
}

double Lagrange(const Numbers& x, const Numbers& y, double t) {
    Work work;
    LagrangeForm form;
    EXPECT_FALSE(LAGRANGE_SET(x, y, form));
    return LAGRANGE_VAL(form, t, work);
}

/// Extreme points of a Chebyshev polynomial, and values of a wavy function there.
struct WellPlaced {
    Numbers x;
    Numbers y;
};

WellPlaced Points(int count) {
    WellPlaced points;
    for (int i = 0; i < count; ++i) {
        points.x.push_back(-std::cos(std::numbers::pi * i / (count - 1)));
        points.y.push_back(2.0 + std::sin(5.0 * points.x.back()));
    }
    return points;
}

TEST(LeastSquares, WithOneTermIsTheMean) {
    const Numbers x = {3, 1, 1, 7};
    const Numbers y = {1, 2, 3, 6};
    for (const double t : {-100.0, 0.0, 1.0, 1e6})
        EXPECT_EQ(Least(x, y, 1, t), 3.0);
}

TEST(LeastSquares, WithTwoTermsIsTheRegressionLine) {
    const Numbers x = {0, 1, 2, 3};
    const Numbers y = {1, 3, 2, 5};
    for (const double t : {-1.0, 0.0, 1.5, 9.0})
        EXPECT_NEAR(Least(x, y, 2, t), 1.1 + 1.1 * t, 1e-13) << t;
}

TEST(LeastSquares, WeighsThePoints) {
    Work work;
    LeastSquaresFit fit;
    const Numbers x = {0, 1};
    const Numbers y = {0, 4};
    const Numbers w = {3, 1};
    EXPECT_EQ(LinesOf(LEAST_SET(x, y, w, 1, fit, work)), "none");
    EXPECT_EQ(LEAST_VAL(fit, 5), 1.0);
}

TEST(LeastSquares, KeepsItsCoefficientsInTheScaledVariable) {
    Work work;
    LeastSquaresFit fit;
    ASSERT_FALSE(LEAST_SET(Numbers{-2, 0, 2}, Numbers{4, 0, 4}, {}, 3, fit, work));
    EXPECT_EQ(fit.scale, 1.0);
    EXPECT_EQ(fit.B, (Numbers{0, 0, 0}));
    EXPECT_DOUBLE_EQ(fit.C[1], 8.0 / 3);
    EXPECT_DOUBLE_EQ(fit.D[0], 8.0 / 3);
    EXPECT_DOUBLE_EQ(fit.D[2], 1.0);
    EXPECT_DOUBLE_EQ(LEAST_VAL(fit, 3), 9.0);
}

TEST(LeastSquares, DoesNotOverflowOnDates) {
    Numbers x;
    Numbers y;
    for (int i = 0; i < 200; ++i) {
        x.push_back(1.6e9 + i * 5e6);
        y.push_back(std::sin(i * 0.05));
    }
    for (int i = 0; i < 200; i += 7)
        EXPECT_NEAR(Least(x, y, 20, x[static_cast<std::size_t>(i)]), std::sin(i * 0.05), 1e-9) << i;
}

TEST(LeastSquares, SurvivesManyTermsAndAnyNumbers) {
    const WellPlaced points = Points(60);
    for (std::size_t i = 0; i < 60; ++i)
        EXPECT_NEAR(Least(points.x, points.y, 60, points.x[i]), points.y[i], 1e-9) << i;
    EXPECT_TRUE(std::isnan(Least({0, kNan, 2}, {1, 2, 3}, 2, 1)));
    Numbers same(50, 4.0);
    EXPECT_EQ(Least(same, same, 1, 0), 4.0);
    EXPECT_TRUE(std::isfinite(Least({-1e308, 0, 1e308}, {1, 2, 3}, 2, 0)));
    EXPECT_TRUE(std::isfinite(Least({0, 5e-324, 1e-323}, {1, 2, 3}, 1, 0)));
}

TEST(LeastSquares, NamesItsFatalConditionsWithABoxForEach) {
    Work work;
    LeastSquaresFit fit;
    const Failure few = LEAST_SET(Numbers{1, 2, 1}, Numbers{1, 2, 3}, {}, 3, fit, work);
    EXPECT_EQ(LinesOf(few),
              "\nLEAST_SET - Fatal error!\n  The number of distinct X values must be\n"
              "  at least NTERMS = 3\n  but the input data has only 2\n  distinct entries.\n");
    EXPECT_EQ(few->box, StringId::LeastSetFailed);
    EXPECT_EQ(Text(*few->box), u"LEAST_SET - Fatal error!");
    EXPECT_EQ(few->reason, StringId::LeastSquaresDistinct);
    EXPECT_TRUE(fit.D.empty());

    const Numbers weights = {1, 1, -0.5};
    const Failure weight = LEAST_SET(Numbers{1, 2, 3}, Numbers{1, 2, 3}, weights, 2, fit, work);
    EXPECT_EQ(LinesOf(weight),
              "\nLEAST_SET - Fatal error!\n  All weights W must be positive,\n"
              "  but weight 3\n  is -0.5\n");
    EXPECT_EQ(Text(*weight->box), u"LEAST_SET - Fatal error!\n");
    EXPECT_EQ(weight->reason, StringId::LeastSquaresWeights);
    EXPECT_TRUE(fit.D.empty());
}

TEST(DividedDifferences, AreTheTable) {
    Work work;
    DifferenceTable table;
    ASSERT_FALSE(DATA_TO_DIF(Numbers{0, 1, 3}, Numbers{1, 3, 19}, table, work));
    EXPECT_EQ(table.high, (Numbers{1, 2, 2}));
    // Points on a line have no second difference.
    ASSERT_FALSE(DATA_TO_DIF(Numbers{0, 1, 3, 7}, Numbers{1, 2, 4, 8}, table, work));
    EXPECT_EQ(table.high, (Numbers{1, 1}));
    ASSERT_FALSE(DATA_TO_DIF(Numbers{5}, Numbers{3}, table, work));
    EXPECT_EQ(DIF_VAL(Numbers{5}, table, 99, work), 3.0);
    ASSERT_FALSE(DATA_TO_DIF(Numbers{}, Numbers{}, table, work));
    EXPECT_EQ(DIF_VAL(Numbers{}, table, 99, work), 0.0);
}

TEST(DividedDifferences, NameTheFirstPairOfEqualAbscissas) {
    const std::string heading = "\nDATA_TO_DIF - Fatal error!\n  Two entries of XTAB are equal!\n";
    const struct {
        Numbers x;
        std::string lines;
    } rows[] = {
        {{1, 1}, "  XTAB[%d] = 1\n  XTAB[%d] = 1\n"},
        {{7, 2.5, 0, 0, 2.5}, "  XTAB[%d] = 2.5\n  XTAB[%d] = 2.5\n"},
        {{3, 0.0, 2, -0.0, 2}, "  XTAB[%d] = 0\n  XTAB[%d] = -0\n"},
        {{9, 8, 8, 8, 9}, "  XTAB[%d] = 9\n  XTAB[%d] = 9\n"},
        {{4, 5, 5, 5}, "  XTAB[%d] = 5\n  XTAB[%d] = 5\n"},
    };
    for (const auto& row : rows) {
        Work work;
        DifferenceTable table;
        const Failure failure = DATA_TO_DIF(row.x, Numbers(row.x.size()), table, work);
        EXPECT_EQ(LinesOf(failure), heading + row.lines);
        EXPECT_EQ(failure->reason, StringId::DifferencesEqual);
    }
}

TEST(DividedDifferences, EndEarlyWhenNothingCanComeOfThem) {
    Numbers narrow;
    Numbers wide;
    Numbers y;
    for (int i = 0; i < 100000; ++i) {
        narrow.push_back(i * 1e-5);
        wide.push_back(i * 1.0);
        y.push_back(i % 2 == 0 ? 1.0 : -1.0);
    }
    Work work;
    DifferenceTable table;
    ASSERT_FALSE(DATA_TO_DIF(narrow, y, table, work));
    EXPECT_TRUE(std::isnan(DIF_VAL(narrow, table, 0.1234567, work)));
    ASSERT_FALSE(DATA_TO_DIF(wide, y, table, work));
    EXPECT_LT(table.high.size(), 1000u);
    EXPECT_NEAR(DIF_VAL(wide, table, 3.0, work), -1.0, 1e-12);
    EXPECT_LT(work.done, 5e9);
}

TEST(DividedDifferences, AgreeWithLagrangeOnWellPlacedPoints) {
    const WellPlaced points = Points(20);
    for (double t = -1.0; t <= 1.0; t += 0.0078125) {
        const double value = Lagrange(points.x, points.y, t);
        EXPECT_NEAR(Newton(points.x, points.y, t), value, 1e-14) << t;
        EXPECT_NEAR(Least(points.x, points.y, 20, t), value, 1e-13) << t;
    }
}

TEST(Lagrange, IsExactAtItsPoints) {
    for (const int count : {1, 2, 5, 20, 32, 33, 50, 400}) {
        Numbers x;
        Numbers y;
        for (int i = 0; i < count; ++i) {
            x.push_back(0.37 * i + 0.1 * std::sin(i));
            y.push_back(std::cos(3.0 * i) / 7);
        }
        for (std::size_t i = 0; i < x.size(); ++i)
            EXPECT_EQ(Lagrange(x, y, x[i]), y[i]) << count << " " << i;
    }
}

TEST(Lagrange, OfNoPointsIsZero) {
    EXPECT_EQ(Lagrange({}, {}, 3.0), 0.0);
}

TEST(Lagrange, HasNoValueWithEqualAbscissas) {
    for (const int count : {3, 40}) {
        Numbers x;
        for (int i = 0; i < count; ++i)
            x.push_back(i);
        x.back() = 1.0;
        const Numbers y(x.size(), 2.0);
        for (const double t : {-1.0, 0.0, 0.5, 1.0, 7.5})
            EXPECT_FALSE(std::isfinite(Lagrange(x, y, t))) << count << " at " << t;
    }
}

/// The definition, for any number of points.
double Defined(const Numbers& x, const Numbers& y, double t) {
    double sum = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        double product = 1.0;
        for (std::size_t j = 0; j < x.size(); ++j)
            if (j != i) product *= (t - x[j]) / (x[i] - x[j]);
        sum += y[i] * product;
    }
    return sum;
}

TEST(Lagrange, KeepsTheDefinedValuesForLargeTables) {
    const WellPlaced points = Points(300);
    for (double t = -1.0; t <= 1.0; t += 0.013)
        EXPECT_NEAR(Lagrange(points.x, points.y, t), Defined(points.x, points.y, t), 1e-12) << t;
    // Equally spaced: both have the error of the condition, about 2^40 here.
    Numbers x;
    Numbers y;
    for (int i = 0; i < 40; ++i) {
        x.push_back(i);
        y.push_back(std::sin(i));
    }
    for (double t = 0.25; t < 39.0; t += 0.5) {
        const double size = std::fabs(t - 19.5) > 12 ? 1e11 : 1e6;
        EXPECT_NEAR(Lagrange(x, y, t), Defined(x, y, t), size * 1e-14) << t;
    }
}

TEST(Lagrange, SeesAnOverflowWithoutAllWeights) {
    Numbers x;
    for (int i = 0; i < 50000; ++i)
        x.push_back(i * 0.001);
    const Numbers y(x.size(), 1.0);
    Work work;
    LagrangeForm form;
    EXPECT_FALSE(LAGRANGE_SET(x, y, form));
    EXPECT_FALSE(std::isfinite(LAGRANGE_VAL(form, 0.0015, work)));
    EXPECT_TRUE(form.weights.empty());
    EXPECT_EQ(LAGRANGE_VAL(form, x[777], work), 1.0);
    EXPECT_TRUE(std::isnan(LAGRANGE_VAL(form, kNan, work)));
}

TEST(Polynomials, StopWhenTheyAreTold) {
    int calls = 0;
    const WorkProgress stop = [&](double done) {
        EXPECT_GE(done, 0.0);
        EXPECT_LE(done, 1.0);
        ++calls;
        return false;
    };
    const WellPlaced points = Points(20000);
    Work work{&stop, 1e6};
    DifferenceTable table;
    EXPECT_FALSE(DATA_TO_DIF(points.x, points.y, table, work));
    EXPECT_TRUE(work.stopped);
    EXPECT_TRUE(table.high.empty());
    EXPECT_EQ(calls, 1);

    calls = 0;
    Work lagrangeWork{&stop, 1e6};
    LagrangeForm form;
    EXPECT_FALSE(LAGRANGE_SET(points.x, points.y, form));
    EXPECT_TRUE(std::isnan(LAGRANGE_VAL(form, 0.1, lagrangeWork)));
    EXPECT_TRUE(lagrangeWork.stopped);
    EXPECT_EQ(calls, 1);

    calls = 0;
    Work leastWork{&stop, 1e6};
    LeastSquaresFit fit;
    EXPECT_FALSE(LEAST_SET(points.x, points.y, {}, 5000, fit, leastWork));
    EXPECT_TRUE(leastWork.stopped);
    EXPECT_TRUE(fit.D.empty());
    EXPECT_EQ(calls, 1);
}

TEST(Polynomials, RefuseWorkThatWouldTakeTooLong) {
    Numbers x;
    for (int i = 0; i < 70711; ++i)
        x.push_back(i);
    const std::string tooMany = " - Fatal error!\n  Too many points.\n";
    LagrangeForm form;
    EXPECT_EQ(LinesOf(LAGRANGE_SET(x, x, form)), "\nLAGRANGE_SET" + tooMany);
    EXPECT_FALSE(LAGRANGE_SET({x.data(), 70710}, {x.data(), 70710}, form));
    LeastSquaresFit fit;
    Work work;
    const Failure failure = LEAST_SET(x, x, {}, 70711, fit, work);
    EXPECT_EQ(LinesOf(failure), "\nLEAST_SET" + tooMany);
    EXPECT_EQ(failure->reason, StringId::TooMuchWork);
    EXPECT_FALSE(failure->box);
    Work spent{nullptr, 0.0, kMostOperations + 1.0};
    DifferenceTable table;
    EXPECT_EQ(LinesOf(DATA_TO_DIF({x.data(), 9}, {x.data(), 9}, table, spent)),
              "\nDATA_TO_DIF" + tooMany);
}

}  // namespace
}  // namespace kalvex
