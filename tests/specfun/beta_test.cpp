// Closed forms and the functional equations of the beta function (DLMF 5.12, 5.5.1).
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <string>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

double Ulps(double value, double expected) {
    if (value == expected) return 0;
    const double unit = std::nextafter(std::fabs(expected), kInfinity) - std::fabs(expected);
    return std::fabs(value - expected) / unit;
}

TEST(Beta, ClosedForms) {
    const struct {
        double a;
        double b;
        double expected;
    } rows[] = {
        {1, 1, 1},
        {2, 3, 1.0 / 12},
        {1, 7, 1.0 / 7},
        {1e-5, 1, 1e5},
        {0.5, 0.5, M_PI},
        {1.5, 0.5, M_PI / 2},
        {6, 6, 1.0 / 2772},
        {1, 1e15, 1e-15},
        {2, 1e6, 1 / (1e6 * (1e6 + 1))},
        {3, 0x1p300, 2 * 0x1p-900},
        {2, 2e5, 1 / (2e5 * (2e5 + 1))},
    };
    for (const auto& row : rows) {
        EXPECT_LE(Ulps(Beta(row.a, row.b), row.expected), 3) << row.a << " " << row.b;
        EXPECT_EQ(Beta(row.b, row.a), Beta(row.a, row.b));
    }
}

// B(a+1,b) + B(a,b+1) = B(a,b), and a B(a,b+1) = b B(a+1,b), through all ranges.
TEST(Beta, Recurrences) {
    for (const double a : {0.125, 1.0, 5.5, 9.75, 40.0, 300.0}) {
        for (const double b : {0.25, 2.0, 8.5, 13.0, 90.0, 512.0}) {
            const double right = Beta(a + 1, b);
            const double up = Beta(a, b + 1);
            EXPECT_LE(Ulps(right + up, Beta(a, b)), 6) << a << " " << b;
            EXPECT_LE(Ulps(a * up, b * right), 8) << a << " " << b;
        }
    }
}

TEST(Beta, EndsOfTheRange) {
    EXPECT_EQ(Beta(0x1p-1000, 3), 0x1p1000);
    EXPECT_EQ(Beta(0x1p-1000, 0x1p-1000), 0x1p1001);
    EXPECT_EQ(Beta(DBL_TRUE_MIN, 3), kInfinity);
    EXPECT_EQ(Beta(1100.5, 2000), 0);
    EXPECT_EQ(Beta(600, 600), 0);
    EXPECT_EQ(Beta(10, 1e40), 0);
    EXPECT_EQ(Beta(kInfinity, 1), 0);
    EXPECT_EQ(Beta(kInfinity, kInfinity), 0);
    EXPECT_EQ(Beta(1, 0x1p1000), 0x1p-1000);
    EXPECT_GT(Beta(530, 530), 0);
    EXPECT_TRUE(std::isnan(Beta(std::nan(""), 1)));
}

TEST(Beta, OfNegativeArguments) {
    constexpr double kMost = 1e-14;
    const struct {
        double a, b, expected;
    } rows[] = {
        {-0.5, 2, -4.0},
        {-2.5, 1.25, -0.21850479619100998421},
        {-2.5, 10.5, -212.55911583494964828},
        {-3.5, -1.25, -18.780848179480407852},
        {-0.25, -0.5, -3.5944207042067766223},
        {-100.5, 30.25, 5.4070687819553083459e-28},
        {-100.5, 200.75, -2.3842649090700116094e+59},
        {-2.5, 0.25, 1.9665431657190898578},
        {-1.5, 1.5, 0},
    };
    for (const auto& [a, b, expected] : rows) {
        EXPECT_NEAR(Beta(a, b), expected, kMost * std::fabs(expected)) << a << " " << b;
        EXPECT_EQ(Beta(a, b), Beta(b, a));
    }
}

TEST(Beta, Poles) {
    for (const double pole : {0.0, -1.0, -7.0, -1e300}) {
        try {
            static_cast<void>(Beta(pole, 2.5));
            ADD_FAILURE() << pole;
        } catch (const ap::ap_error& error) {
            EXPECT_EQ(error.msg, "Overflow in Beta");
        }
    }
}

}  // namespace
}  // namespace kalvex::specfun
