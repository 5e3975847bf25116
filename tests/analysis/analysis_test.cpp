#include "analysis/analysis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "analysis/analysis_fixtures.h"

namespace kalvex {
namespace {

using fixtures::Analyse;
using fixtures::At;
using fixtures::Draw;
using fixtures::EntryOf;
using fixtures::EntryOfValues;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::vector<double> Abscissas(const std::vector<CurveSample>& samples) {
    std::vector<double> found;
    for (const CurveSample& sample : samples)
        found.push_back(sample.x);
    return found;
}

TEST(Analysis, ExtremeValues) {
    const struct {
        std::vector<CurveSample> samples;
        double greatest;
        double least;
    } rows[] = {
        {{At(0, 3)}, 3, 3},
        {{At(0, 3), At(1, 5), At(2, -4), At(3, 5)}, 5, -4},
        {{At(0, 3), At(1, 500, 0, 2), At(2, -400, 0, 2)}, 3, 3},
        // An undefined first sample takes part in the least value only.
        {{At(0, 1e30, 0, 2), At(1, 5), At(2, 7)}, 7, 5},
        {{At(0, -9, 0, 2), At(1, 5), At(2, 7)}, 7, -9},
        {{At(0, 1e30, 0, 2)}, -1e100, 1e30},
        {{At(0, 1e30, 0, 2), At(1, 1e30, 0, 2)}, -1e100, 1e30},
        {{At(0, 1e30, 0, 2), At(1, -1e200)}, -1e100, -1e200},
    };
    for (const auto& row : rows) {
        const AnalysisResult result = Analyse(EntryOf(row.samples));
        EXPECT_EQ(result.greatestY, row.greatest) << row.samples.size();
        EXPECT_EQ(result.leastY, row.least) << row.samples.size();
    }
}

TEST(Analysis, Roots) {
    const struct {
        std::vector<double> values;
        std::vector<double> roots;
    } rows[] = {
        {{1}, {}},
        {{0}, {}},
        {{1, -1}, {0}},
        {{-1, 1, 1, -1}, {0, 2}},
        {{0, 1}, {0}},        // the first sample is never the right one of a pair
        {{1, 0, 1}, {1, 1}},  // an exact zero counts twice
        {{1, 0}, {1}},        // the last sample counts once
        {{1, 0, 0, 1}, {1, 2, 2}},
        {{0, 0, 0, 0}, {1, 2, 3}},
        {{1, -0.0, -1}, {1, 1}},
        {{kNan, 1, kNan, -1}, {}},
        // The product of the two values underflows to 0, and the test is on the product.
        {{1e-200, 1e-200}, {0}},
    };
    for (const auto& row : rows) {
        const AnalysisResult result = Analyse(EntryOfValues(row.values));
        EXPECT_EQ(result.roots, row.roots) << row.values.size();
        EXPECT_EQ(result.rootCount, static_cast<std::int32_t>(row.roots.size()));
    }
}

TEST(Analysis, AJumpOverTheWholePictureIsNoRoot) {
    const struct {
        std::int32_t left;
        std::int32_t right;
        bool root;
    } rows[] = {
        {0, 99, true},
        {0, 100, false},
        {99, 0, true},
        {100, 0, false},
        {-50, 50, false},
        {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(), false},
        {std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min(),
         false}};
    for (const auto& row : rows) {
        const AnalysisResult result = Analyse(EntryOf({At(4, 1, row.left), At(5, -1, row.right)}));
        EXPECT_EQ(result.rootCount, row.root ? 1 : 0) << row.left << ' ' << row.right;
    }
    // An exact zero counts even after a jump, and only once when a jump follows it.
    EXPECT_EQ(Analyse(EntryOf({At(4, 1, 0), At(5, 0, 500)})).rootCount, 1);
    EXPECT_EQ(Analyse(EntryOf({At(4, 0, 0), At(5, 1, 500)})).rootCount, 0);
}

TEST(Analysis, TheFlagIsNotAskedForRootsAndExtremums) {
    const AnalysisResult roots = Analyse(EntryOf({At(0, 1, 0, 2), At(1, -1, 0, 2)}));
    EXPECT_EQ(roots.rootCount, 1);
    const AnalysisResult tops =
        Analyse(EntryOf({At(0, 1, 0, 2), At(1, 2, 0, 2), At(2, 1, 0, 2), At(3, 5)}));
    EXPECT_EQ(Abscissas(tops.maximums), std::vector<double>{1});
    EXPECT_EQ(Abscissas(tops.minimums), std::vector<double>{2});
}

TEST(Analysis, Extremums) {
    const struct {
        std::vector<double> values;
        std::vector<double> minimums;
        std::vector<double> maximums;
    } rows[] = {
        {{}, {}, {}},
        {{1}, {}, {}},
        {{1, 2}, {}, {}},
        {{1, 2, 1}, {}, {1}},
        {{2, 1, 2}, {1}, {}},
        {{1, 2, 2, 1}, {}, {}},
        {{5, 4, 5, 4, 5}, {1, 3}, {2}},
        {{7, 7, 7}, {}, {}},
        {{1, kNan, 1}, {}, {}},
    };
    for (const auto& row : rows) {
        const AnalysisResult result = Analyse(EntryOfValues(row.values));
        EXPECT_EQ(Abscissas(result.minimums), row.minimums) << row.values.size();
        EXPECT_EQ(Abscissas(result.maximums), row.maximums) << row.values.size();
        EXPECT_EQ(result.minimumCount, static_cast<std::int32_t>(row.minimums.size()));
        EXPECT_EQ(result.maximumCount, static_cast<std::int32_t>(row.maximums.size()));
    }
}

TEST(Analysis, ExtremumsNeedBothNeighboursNear) {
    const struct {
        std::int32_t left;
        std::int32_t right;
        std::int32_t found;
    } rows[] = {{99, 99, 1}, {100, 99, 0}, {99, 100, 0}, {-99, -99, 1}, {-99, -100, 0}};
    for (const auto& row : rows) {
        const AnalysisResult top =
            Analyse(EntryOf({At(0, 1, row.left), At(1, 2), At(2, 1, row.right)}));
        EXPECT_EQ(top.maximumCount, row.found) << row.left << ' ' << row.right;
        const AnalysisResult low =
            Analyse(EntryOf({At(0, 1, row.left), At(1, 0.5), At(2, 1, row.right)}));
        EXPECT_EQ(low.minimumCount, row.found) << row.left << ' ' << row.right;
    }
}

TEST(Analysis, AnExtremumIsTheWholeSample) {
    CurveSample top = At(1.5, 2, 33);
    top.column = 17;
    top.parameter = 0.25;
    top.status = 9;
    const AnalysisResult result = Analyse(EntryOf({At(0, 1, 40), top, At(2, 1, 40)}));
    ASSERT_EQ(result.maximumCount, 1);
    EXPECT_EQ(result.maximums[0].column, 17);
    EXPECT_EQ(result.maximums[0].row, 33);
    EXPECT_EQ(result.maximums[0].x, 1.5);
    EXPECT_EQ(result.maximums[0].y, 2.0);
    EXPECT_EQ(result.maximums[0].parameter, 0.25);
    EXPECT_EQ(result.maximums[0].status, 9);
}

TEST(Analysis, Interval) {
    const std::vector<CurveSample> loop = {At(1, 0), At(4, 1), At(-2, 2, 0, 5), At(3, 3)};
    const struct {
        EquationType type;
        double a;
        double b;
    } rows[] = {{EquationType::Decart, -3, 7},
                {EquationType::File, -3, 7},
                {EquationType::None, -3, 7},
                {EquationType::Polar, -2, 4},
                {EquationType::Parametric, -2, 4}};
    for (const auto& row : rows) {
        const AnalysisResult result = Analyse(EntryOf(loop, row.type));
        EXPECT_EQ(result.a, row.a) << static_cast<int>(row.type);
        EXPECT_EQ(result.b, row.b) << static_cast<int>(row.type);
    }
    const AnalysisResult one = Analyse(EntryOf({At(5, 1)}, EquationType::Polar));
    EXPECT_EQ(one.a, 5.0);
    EXPECT_EQ(one.b, 5.0);
}

TEST(Analysis, MeanValue) {
    const struct {
        std::vector<CurveSample> samples;
        double mean;
    } rows[] = {
        {{At(0, 8)}, 0},
        {{At(0, 8), At(1, 8)}, 4},  // the sum has one pair, the divisor is two samples
        {{At(0, 8), At(1, 8), At(5, 8), At(9, 8)}, 6},
        {{At(0, 8), At(1, 8, 0, 2), At(2, 8), At(3, 4)}, 1.5},
        {{At(0, 8, 0, 2), At(1, 8), At(2, 8), At(3, 8, 0, 2)}, 2},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Analyse(EntryOf(row.samples)).meanValue, row.mean) << row.samples.size();
}

TEST(Analysis, WithoutSamples) {
    AnalysisResult result = Analyse(EntryOf({}));
    EXPECT_EQ(result.a, -3.0);
    EXPECT_EQ(result.b, 7.0);
    EXPECT_EQ(result.greatestY, 0.0);
    EXPECT_EQ(result.leastY, 0.0);
    EXPECT_EQ(result.rootCount + result.minimumCount + result.maximumCount, 0);
    EXPECT_EQ(result.integral, 0.0);
    EXPECT_FALSE(result.integralUndefined);
    EXPECT_EQ(Analyse(EntryOf({}, EquationType::Polar)).b, 0.0);
}

TEST(Analysis, ReplacesTheOneBefore) {
    AnalysisResult result;
    analyzeSampledCurve(result, EntryOfValues({1, -1, 1, 5, 1}), 100, {});
    analyzeSampledCurve(result, EntryOfValues({1, 2}), 100, {});
    EXPECT_TRUE(result.roots.empty() && result.maximums.empty() && result.minimums.empty());
    EXPECT_EQ(result.rootCount + result.minimumCount + result.maximumCount, 0);
}

TEST(Analysis, ReleasedArraysLeaveTheFigures) {
    AnalysisResult result = Analyse(EntryOfValues({1, -1, 1, 5, 1}));
    ReleaseArrays(result);
    EXPECT_TRUE(result.roots.empty() && result.maximums.empty() && result.minimums.empty());
    EXPECT_EQ(result.rootCount, 2);
    EXPECT_EQ(result.maximumCount, 1);
}

TEST(Analysis, OfASine) {
    const fixtures::DrawnLine drawn = Draw(EquationType::Decart, u"sin(x)", {-10, 10});
    const AnalysisResult result = Analyse(drawn);
    const double step = drawn.functions[0].samples[1].x - drawn.functions[0].samples[0].x;
    ASSERT_EQ(result.rootCount, 7);
    for (int k = -3; k <= 3; ++k) {
        const double zero = k * 3.14159265358979323846;
        const double root = result.roots[static_cast<std::size_t>(k + 3)];
        EXPECT_LE(root, zero) << k;
        EXPECT_GT(root, zero - 1.000001 * step) << k;
    }
    EXPECT_EQ(result.a, -10.0);
    EXPECT_EQ(result.b, 10.0);
    EXPECT_EQ(result.maximumCount, 3);
    EXPECT_EQ(result.minimumCount, 3);
}

TEST(Analysis, OfATangentHasNoRootsAtItsPoles) {
    const fixtures::DrawnLine drawn = Draw(EquationType::Decart, u"tg(x)", {-10, 10});
    const AnalysisResult result = Analyse(drawn);
    ASSERT_EQ(result.rootCount, 7);
    for (const double root : result.roots)
        EXPECT_LT(std::fabs(std::tan(root)), 0.2) << root;
}

// KEEP rows: the marker of an undefined sample is a value for roots, extremums and the interval.
TEST(Analysis, OfALogarithmHasARootAndAMinimumBesideItsGap) {
    const fixtures::DrawnLine drawn = Draw(EquationType::Decart, u"ln(x)", {});
    const std::vector<CurveSample>& samples = drawn.functions[0].samples;
    const AnalysisResult result = Analyse(drawn);
    EXPECT_EQ(samples[119].y, UndefinedValue);
    EXPECT_EQ(result.rootCount, 2);
    ASSERT_EQ(result.roots.size(), 2u);
    EXPECT_EQ(result.roots[0], samples[119].x) << "the last undefined sample";
    EXPECT_NEAR(result.roots[1], 1.0, 0.09);
    EXPECT_EQ(Abscissas(result.minimums), std::vector<double>{samples[120].x});
    EXPECT_EQ(result.maximumCount, 0);
}

TEST(Analysis, AGapOfOneSampleIsAMaximum) {
    const AnalysisResult result =
        Analyse(Draw(EquationType::Decart, u"1+0/x", {-10, 10, -10, 10, 201}));
    EXPECT_EQ(result.maximumCount, 1);
    ASSERT_EQ(result.maximums.size(), 1u);
    EXPECT_EQ(result.maximums[0].y, UndefinedValue);
}

TEST(Analysis, TheIntervalReachesToAnUndefinedSample) {
    const AnalysisResult result = Analyse(Draw(EquationType::Parametric, u"ln(x-1)", {}, u"x"));
    EXPECT_EQ(result.b, UndefinedValue);
    EXPECT_LT(result.a, 0.0);
}

TEST(Analysis, OfConstants) {
    const AnalysisResult four = Analyse(Draw(EquationType::Decart, u"4", {}));
    EXPECT_EQ(four.greatestY, 4.0);
    EXPECT_EQ(four.leastY, 4.0);
    EXPECT_EQ(four.rootCount + four.minimumCount + four.maximumCount, 0);
    const AnalysisResult zero = Analyse(Draw(EquationType::Decart, u"0", {}));
    EXPECT_EQ(zero.rootCount, 239);
}

TEST(CanAnalyse, AllButImplicitCurves) {
    EXPECT_TRUE(CanAnalyse(EntryOf({}, EquationType::Decart)));
    EXPECT_TRUE(CanAnalyse(EntryOf({}, EquationType::File)));
    EXPECT_TRUE(CanAnalyse(EntryOf({}, EquationType::Polar)));
    EXPECT_TRUE(CanAnalyse(EntryOf({}, EquationType::Parametric)));
    EXPECT_FALSE(CanAnalyse(EntryOf({}, EquationType::Implicit)));
}

}  // namespace
}  // namespace kalvex
