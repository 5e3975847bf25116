// The quick logarithm and exponential against the slow ones, which are accurate to 90 bits and
// more.
#include "numbers/quick_log_exp.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

namespace kalvex {
namespace {

constexpr double kBound = 0x1p-66;

TEST(QuickLogExp, LogarithmThroughTheWholeRange) {
    for (double x = DBL_TRUE_MIN; x < DBL_MAX / 1.7; x *= 1.6180339887) {
        const DoubleDouble expected = Log({x, 0});
        const DoubleDouble distance = QuickLog(x) - expected;
        EXPECT_LE(std::fabs(distance.high), kBound * std::fabs(expected.high)) << x;
        if (x < 1e-320) x = 1e-320;
    }
    EXPECT_NEAR(QuickLog(DBL_MAX).high, 709.782712893384, 1e-12);
}

TEST(QuickLogExp, LogarithmNextToOne) {
    EXPECT_EQ(QuickLog(1).high, 0);
    EXPECT_EQ(QuickLog(1).low, 0);
    for (double distance = DBL_EPSILON; distance < 0.7; distance *= 1.37) {
        for (const double x : {1 + distance, 1 - distance}) {
            const double exact = x - 1;
            if (exact == 0 || std::fabs(exact) > 0.4) continue;
            const DoubleDouble expected = LogOnePlus({exact, 0});
            const DoubleDouble error = QuickLog(x) - expected;
            EXPECT_LE(std::fabs(error.high), kBound * std::fabs(expected.high)) << x;
        }
    }
}

TEST(QuickLogExp, LogarithmAtEverySeam) {
    for (int i = 0; i <= 128; ++i) {
        for (const double side : {-1.0, 0.0, 1.0}) {
            const double x = std::nextafter(1 + i / 128.0, side == 0 ? 1 + i / 128.0 : side * 9);
            if (x <= 1) continue;
            const DoubleDouble expected = Log({x, 0});
            const DoubleDouble distance = QuickLog(x) - expected;
            EXPECT_LE(std::fabs(distance.high), kBound * expected.high + 0x1p-94) << x;
        }
    }
}

TEST(QuickLogExp, ExponentialOfPairs) {
    for (double a = -744.9; a < 709; a += 0.3718281828) {
        const DoubleDouble argument = {a, a * 0x1.8p-55};
        int exponent = 0;
        int expectedExponent = 0;
        const DoubleDouble value = QuickExp(argument, exponent);
        const DoubleDouble expected = ExpScaled(argument, expectedExponent);
        const DoubleDouble distance = value - Scale(expected, expectedExponent - exponent);
        EXPECT_LE(std::fabs(distance.high), kBound * value.high) << a;
    }
    int exponent = 0;
    EXPECT_EQ(QuickExp({0, 0}, exponent).high, 1);
    EXPECT_EQ(exponent, 0);
}

}  // namespace
}  // namespace kalvex
