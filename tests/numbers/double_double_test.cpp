// Reference values: 60 digits by mpmath 1.3, split into two doubles.
#include "numbers/double_double.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kalvex {
namespace {

/// |a - b| / |b| below the bound.
void ExpectClose(DoubleDouble a, DoubleDouble b, double bound, const char* what) {
    const DoubleDouble distance = a - b;
    EXPECT_LE(std::fabs(distance.high), bound * std::fabs(b.high))
        << what << ": " << a.high << " + " << a.low << ", expected " << b.high << " + " << b.low;
}

TEST(DoubleDouble, SumsAndProductsAreExact) {
    const double epsilon = std::numeric_limits<double>::epsilon();
    const DoubleDouble sum = TwoSum(1.0, epsilon / 8);
    EXPECT_EQ(sum.high, 1.0);
    EXPECT_EQ(sum.low, epsilon / 8);
    const DoubleDouble square = TwoProduct(1 + epsilon, 1 + epsilon);
    EXPECT_EQ(square.high, 1 + 2 * epsilon);
    EXPECT_EQ(square.low, epsilon * epsilon);
}

TEST(DoubleDouble, OperationsAreGoodToThirtyDigits) {
    constexpr double kBound = 1e-30;
    const DoubleDouble third = DoubleDouble{1, 0} / 3;
    ExpectClose(third * 3, {1, 0}, kBound, "1/3 * 3");
    ExpectClose(kPi / kLn2 * kLn2, kPi, kBound, "pi/ln2 * ln2");
    ExpectClose(Sqrt(kPi) * Sqrt(kPi), kPi, kBound, "sqrt(pi)^2");
    ExpectClose(kPi + kLn2 - kLn2, kPi, kBound, "pi + ln2 - ln2");
    EXPECT_EQ(Sqrt({0, 0}).high, 0);
}

TEST(DoubleDouble, Exponential) {
    const struct {
        double x;
        DoubleDouble expected;
    } rows[] = {
        {1, {2.7182818284590451, 1.4456468917292502e-16}},
        {-1, {0.36787944117144233, -1.2428753672788363e-17}},
        {0.10000000000000001, {1.1051709180756477, -8.1495239133276193e-17}},
        {100.25, {3.4516107331259239e+43, 4.1401633997930711e+26}},
        {-600.5, {1.6075467697937942e-261, 3.5377261277645408e-279}},
        {709, {8.2184074615549724e+307, -1.9559655076962771e+291}},
    };
    for (const auto& row : rows)
        ExpectClose(Exp({row.x, 0}), row.expected, 1e-29, "Exp");
}

TEST(DoubleDouble, ExponentialMinusOne) {
    const struct {
        double x;
        DoubleDouble expected;
    } rows[] = {
        {1, {1.7182818284590453, -7.7479915752106292e-17}},
        {-1, {-0.63212055882855767, -1.2428753672788363e-17}},
        {0.001, {0.0010005001667083417, 2.5985440942037489e-20}},
        {-9.9999999999999998e-13, {-9.9999999999949996e-13, -2.421793993634571e-29}},
        {9.9999999999999995e-21, {9.9999999999999995e-21, 4.9999999999999996e-41}},
    };
    for (const auto& row : rows)
        ExpectClose(ExpMinusOne({row.x, 0}), row.expected, 1e-29, "ExpMinusOne");
}

TEST(DoubleDouble, Logarithm) {
    const struct {
        double x;
        DoubleDouble expected;
    } rows[] = {
        {2, {0.69314718055994529, 2.3190468138462996e-17}},
        {10, {2.3025850929940459, -2.1707562233822494e-16}},
        {0.10000000000000001, {-2.3025850929940455, -1.7150243628057985e-16}},
        {1.0000000000000001e+300, {690.77552789821368, 2.3747660028800243e-14}},
        {4.9406564584124654e-324, {-744.44007192138122, -4.4224443409186981e-14}},
        {1.25, {0.22314355131420976, -9.091270597324799e-18}},
    };
    for (const auto& row : rows)
        ExpectClose(Log({row.x, 0}), row.expected, 1e-28, "Log");
}

TEST(DoubleDouble, LogarithmOfOnePlus) {
    const struct {
        double x;
        DoubleDouble expected;
    } rows[] = {
        {0.25, {0.22314355131420976, -9.091270597324799e-18}},
        {-0.40000000000000002, {-0.51082562376599072, 1.5233815099851014e-18}},
        {0.001, {0.00099950033308353315, 3.8971025988294614e-20}},
        {-9.9999999999999998e-13, {-1.0000000000005e-12, 2.4217939436345712e-29}},
        {9.9999999999999995e-21, {9.9999999999999995e-21, -4.9999999999999996e-41}},
    };
    for (const auto& row : rows)
        ExpectClose(LogOnePlus({row.x, 0}), row.expected, 1e-29, "LogOnePlus");
}

TEST(DoubleDouble, ExponentialAtTheEndsOfTheRange) {
    EXPECT_TRUE(std::isinf(Exp({711, 0}).high));
    EXPECT_EQ(Exp({-750, 0}).high, 0);
    EXPECT_EQ(Exp({-745, 0}).high, std::numeric_limits<double>::denorm_min());
}

TEST(DoubleDouble, SineAndCosineOfManyTurns) {
    for (const double turns : {0.0, 1.0, 12345.0, 1e13}) {
        const DoubleDouble angle = kPi * (2 * turns) + 0.5;
        const auto [sine, cosine] = SinCos(angle);
        // The stored pi has an error of 2^-108; the error of the result is that times the number of
        // turns.
        EXPECT_NEAR(sine, std::sin(0.5), 1e-16 + turns * 1e-31) << turns;
        EXPECT_NEAR(cosine, std::cos(0.5), 1.2e-16 + turns * 1e-31) << turns;
    }
    EXPECT_NEAR(SinCos(kPi).sine, 0, 1e-31);
    EXPECT_NEAR(SinCos(kPi).cosine, -1, 1e-16);
    EXPECT_NEAR(SinCos(-kHalfPi).sine, -1, 1e-16);
}

}  // namespace
}  // namespace kalvex
