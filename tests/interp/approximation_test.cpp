#include "interp/approximation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "expr/eval_error.h"
#include "interp/diagnostic_lines.h"
#include "interp/point_file.h"
#include "resources/samples.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

struct Pass {
    Numbers values;
    Failure failure;
};

Pass RunPass(const Numbers& x, const Numbers& y, const ApproxParameters& parameters,
             const Numbers& t) {
    Approximation approximation = SetUpApproximation(x, y, parameters);
    Pass pass{Numbers(t.size(), 5.0), {}};
    EvaluateApproximation(approximation, t, pass.values);
    pass.failure = approximation.failure;
    return pass;
}

const Numbers kAt = {-3, 0, 0.25, 0.5, 1, 1.75, 2, 3.5, 4, 10};

TEST(Approximation, GivesALineForPointsOnALine) {
    const Numbers x = {0, 1, 2, 3, 4};
    const Numbers uneven = {0, 0.5, 2, 3, 4};
    // The constant spline has steps. The B, beta and uniform Overhauser splines assume equal
    // spacing and give a line only then.
    for (const std::int32_t method : {0, 1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12}) {
        for (const Numbers& abscissas : {x, uneven}) {
            const bool parametric = method == 2 || method == 3 || method == 5;
            if (parametric && abscissas == uneven) continue;
            Numbers y;
            for (const double v : abscissas)
                y.push_back(3.0 - 2.0 * v);
            const ApproxParameters parameters{method, method == 0 ? 2 : 0, 0, 1.0, 0.0};
            const Pass pass = RunPass(abscissas, y, parameters, kAt);
            EXPECT_FALSE(pass.failure);
            for (std::size_t i = 0; i < kAt.size(); ++i)
                EXPECT_NEAR(pass.values[i], 3.0 - 2.0 * kAt[i], 1e-12)
                    << "method " << method << " at " << kAt[i];
        }
    }
}

TEST(Approximation, OfTooFewPointsIsUndefinedOrFatal) {
    // What 0, 1 and 2 points give, per method: u undefined, v a value, f a fatal condition.
    const char* const expected[] = {"uvv", "uvv", "uuv", "uuv", "fff", "fff", "fff",
                                    "uvv", "uuv", "fff", "ffv", "ffv", "vvv"};
    static_assert(std::size(expected) == kMethodCount);
    for (std::int32_t method = 0; method < kMethodCount; ++method) {
        for (std::size_t count = 0; count <= 2; ++count) {
            Numbers x;
            for (std::size_t i = 0; i < count; ++i)
                x.push_back(static_cast<double>(i));
            const ApproxParameters parameters{method, method == 10 ? 0 : 1, 0, 1.0, 0.0};
            const Pass pass = RunPass(x, Numbers(count, 2.0), parameters, {0.5});
            const char found = pass.failure ? 'f' : pass.values[0] == UndefinedValue ? 'u' : 'v';
            EXPECT_EQ(found, expected[method][count]) << method << " of " << count;
            if (found == 'f') {
                EXPECT_EQ(pass.values[0], UndefinedValue);
            }
        }
    }
    EXPECT_EQ(RunPass({}, {}, {12}, {0.5}).values[0], 0.0);
}

TEST(Approximation, OfAnUnknownMethodOrNoTermsIsUndefined) {
    const Numbers x = {0, 1, 2};
    for (const std::int32_t method : {-1, kMethodCount, INT32_MIN, INT32_MAX}) {
        const Pass pass = RunPass(x, x, {method}, kAt);
        EXPECT_FALSE(pass.failure);
        EXPECT_EQ(pass.values, Numbers(kAt.size(), UndefinedValue));
    }
    for (const std::int32_t terms : {0, -1, INT32_MIN}) {
        const Pass pass = RunPass(x, x, {0, terms}, kAt);
        EXPECT_FALSE(pass.failure);
        EXPECT_EQ(pass.values, Numbers(kAt.size(), UndefinedValue));
    }
}

TEST(Approximation, MakesAWholePassUndefinedWhenOneAbscissaFails) {
    const Numbers x = {0, 1, 2, 2, 1};
    const Numbers y = {0, 1, 4, 9, 16};
    const Pass good = RunPass(x, y, {9}, {0.0, 0.5, 1.0});
    EXPECT_FALSE(good.failure);
    EXPECT_EQ(good.values, (Numbers{0.0, 0.25, 1.0}));
    const Pass bad = RunPass(x, y, {9}, {0.0, 0.5, 2.5});
    EXPECT_EQ(LinesOf(bad.failure),
              "\nSPLINE_QUADRATIC_VAL - Fatal error!\n  T2 <= T1 or T3 <= T2.\n");
    EXPECT_EQ(bad.values, Numbers(3, UndefinedValue));
}

TEST(Approximation, FailsAtItsSetUp) {
    const struct {
        ApproxParameters parameters;
        Numbers x;
        std::string heading;
    } rows[] = {
        {{0, 3}, {1, 1, 2}, "LEAST_SET"},
        {{1}, {1, 1, 2}, "DATA_TO_DIF"},
        {{4}, {1, 2}, "SPLINE_OVERHAUSER_NONUNI_VAL"},
        {{5}, {1, 2}, "SPLINE_OVERHAUSER_UNI_VAL"},
        {{6}, {1, 1, 2}, "SPLINE_OVERHAUSER_VAL"},
        {{9}, {1, 2, 3, 4}, "SPLINE_QUADRATIC_VAL"},
        {{10, 0}, {1, 1, 2}, "SPLINE_CUBIC_SET"},
        {{10, 3}, {0, 1, 2}, "SPLINE_CUBIC_SET"},
        {{10, 0, -1}, {0, 1, 2}, "SPLINE_CUBIC_SET"},
        {{11}, {1, 1, 2}, "SPLINE_PCHIP_SET"},
    };
    for (const auto& row : rows) {
        const Pass pass = RunPass(row.x, Numbers(row.x.size(), 1.0), row.parameters, kAt);
        ASSERT_TRUE(pass.failure) << row.heading;
        EXPECT_EQ(pass.failure->heading, row.heading + " - Fatal error!");
        EXPECT_EQ(pass.values, Numbers(kAt.size(), UndefinedValue)) << row.heading;
    }
}

TEST(Approximation, TakesItsParametersFromTheFieldsOfTheLine) {
    const Numbers x = {0, 1, 3, 4};
    const Numbers y = {0, 2, 1, 5};
    // Left: first derivative 7; right: second derivative -3.
    Approximation cubic = SetUpApproximation(x, y, {10, 1, 2, 7.0, -3.0});
    const Knots& knots = cubic.knots;
    EXPECT_NEAR(SPLINE_CUBIC_VAL(knots, y, cubic.coefficients, 0).first, 7.0, 1e-13);
    EXPECT_NEAR(SPLINE_CUBIC_VAL(knots, y, cubic.coefficients, 4).second, -3.0, 1e-13);
    EXPECT_EQ(RunPass(x, y, {3, 1, 0, 1.0, 0.0}, kAt).values, RunPass(x, y, {2}, kAt).values);
    EXPECT_NE(RunPass(x, y, {3, 1, 0, 2.0, 0.0}, kAt).values, RunPass(x, y, {2}, kAt).values);
    EXPECT_NE(RunPass(x, y, {3, 1, 0, 1.0, 1.0}, kAt).values, RunPass(x, y, {2}, kAt).values);
    EXPECT_NE(RunPass(x, y, {10, 0}, kAt).values, RunPass(x, y, {10, 2, 2, 0.0, 0.0}, kAt).values);
}

TEST(Approximation, IsTheSameInAnyOrderOfTheAbscissas) {
    const Numbers x = {0, 1, 1.5, 3, 4};
    const Numbers y = {0, 2, 1, 5, 3};
    const Numbers backward(kAt.rbegin(), kAt.rend());
    for (std::int32_t method = 0; method < kMethodCount; ++method) {
        const ApproxParameters parameters{method, 1, 1, 1.0, 0.5};
        const Numbers there = RunPass(x, y, parameters, kAt).values;
        const Numbers back = RunPass(x, y, parameters, backward).values;
        EXPECT_EQ(there, Numbers(back.rbegin(), back.rend())) << method;
    }
}

TEST(Approximation, LeavesTheRestUndefinedWhenItIsStopped) {
    const std::size_t count = 300000;
    Numbers x;
    for (std::size_t i = 0; i < count; ++i)
        x.push_back(static_cast<double>(i));
    Approximation approximation = SetUpApproximation(x, x, {8});
    Numbers values(count, 5.0);
    EvaluateApproximation(approximation, x, values, [](double) { return false; });
    EXPECT_TRUE(approximation.stopped);
    EXPECT_EQ(values.front(), 0.0);
    EXPECT_EQ(values.back(), UndefinedValue);

    Approximation least = SetUpApproximation(x, x, {0, 20}, [](double) { return false; });
    EXPECT_TRUE(least.stopped);
    EvaluateApproximation(least, kAt, {values.data(), kAt.size()});
    EXPECT_EQ(values[0], UndefinedValue);
}

TEST(Approximation, OfVeryManyPointsIsStoppedInTheSetUp) {
    Numbers x(300000);
    std::iota(x.begin(), x.end(), 0.0);
    for (const std::int32_t method : {10, 11}) {
        const auto stop = [](double) { return false; };
        EXPECT_TRUE(SetUpApproximation(x, x, {method}, stop).stopped) << method;
        const auto goOn = [](double) { return true; };
        EXPECT_TRUE(SetUpApproximation(x, x, {method}, goOn).hasValues) << method;
    }
}

TEST(Approximation, JoinsTheSampleFilesByEveryMethod) {
    const std::size_t counts[] = {41, 17, 11};
    for (std::size_t i = 0; i < std::size(counts); ++i) {
        const PointTable table = ReadPointFile(SamplePath(kSampleFiles[i])).points;
        ASSERT_EQ(table.x.size(), counts[i]);
        for (std::int32_t method = 0; method < kMethodCount; ++method) {
            const Pass pass =
                RunPass(table.x, table.y, {method, method == 0 ? 7 : 2, 2, 1.0, 0.0}, table.x);
            EXPECT_FALSE(pass.failure) << kSampleFiles[i] << " " << method;
            for (const double value : pass.values)
                EXPECT_LT(std::fabs(value), 10.0) << kSampleFiles[i] << " " << method;
        }
    }
}

}  // namespace
}  // namespace kalvex
