// J and Y by the expansions for large orders: identities and the edges of the range.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "specfun/bessel/oscillating.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Arguments near the order, by their distance in widths of the turning point, and beyond it.
constexpr double kWidths[] = {-20, -11.9, -5, -1, -0.25, 0, 0.25, 1, 5, 11.9, 20, 60, 200, 300};
constexpr double kRatios[] = {1.001, 1.02, 1.3, 1.9999, 2, 2.0001, 7, 1e5, 1e20, 1e280};

// The expansions must obey the recurrence f(n+1) = 2n/x f(n) - f(n-1) (DLMF 10.6.1), which they do
// not use.
TEST(BesselLargeOrders, FollowTheRecurrence) {
    for (const double n : {1e5, 1e5 - 0.5}) {
        for (const double width : kWidths) {
            const double x = n + width * std::cbrt(n);
            for (const auto f : {BesselJ, BesselY}) {
                const double below = f(n - 1, x);
                const double middle = 2 * n / x * f(n, x);
                const double above = f(n + 1, x);
                const double scale = std::fabs(below) + std::fabs(middle) + std::fabs(above);
                EXPECT_NEAR(above, middle - below, 1e-14 * scale) << n << " " << x;
            }
        }
    }
}

// On both sides of the first order that uses the expansions, and of the x beyond which smaller
// orders use them: the recurrence leads from one method to the other.
TEST(BesselLargeOrders, MeetTheRecurrence) {
    const double orders[] = {24, 25, 31.75, 60.5, 99.5, 100, 100.25, 101};
    for (const double n : orders) {
        for (double x = 0.55 * n; x < 6 * n; x *= 1.003) {
            for (const auto f : {BesselJ, BesselY}) {
                const double below = f(n - 1, x);
                const double middle = 2 * n / x * f(n, x);
                const double above = f(n + 1, x);
                const double scale = std::fabs(below) + std::fabs(middle) + std::fabs(above);
                EXPECT_NEAR(above, middle - below, 4 * DBL_EPSILON * scale) << n << " " << x;
            }
        }
    }
}

// J(n+1) Y(n) - J(n) Y(n+1) = 2/(pi x) (10.5.2). From one order to the next the phase turns only a
// little, so that even the rounding of s counts against that.
TEST(BesselLargeOrders, Wronskian) {
    for (const double n : {100.0, 100000.5, 1e6, 3.25e7, 1e9}) {
        for (const double width : kWidths) {
            const double x = n + width * std::cbrt(n);
            if (x < 0) continue;
            const DoubleDouble scale = kHalfPi * x;
            const Scaled j = LargeOrderJ(n, x);
            const Scaled y = LargeOrderY(n, x);
            const Scaled nextJ = LargeOrderJ(n + 1, x);
            const Scaled nextY = LargeOrderY(n + 1, x);
            const Scaled first{nextJ.value * y.value * scale, nextJ.exponent + y.exponent};
            const Scaled second{-(j.value * nextY.value * scale), j.exponent + nextY.exponent};
            const double lost =
                0x1p-57 * (std::fabs(ToDouble(first)) + std::fabs(ToDouble(second)));
            EXPECT_NEAR(ToDouble(Sum(first, second)), 1, lost + 0x1p-60 * n + 0x1p-53)
                << n << " " << width;
        }
    }
}

// J^2 + Y^2 does not depend on the phase: it is 2/(pi s) up to a relative 1/(16 xi^2), where s =
// sqrt(x^2 - n^2) and xi is the phase (10.18.17).
TEST(BesselLargeOrders, Modulus) {
    for (const double n : {123456.75, 1e8, 1e12, 1e16, 1e100, 1e300}) {
        for (const double ratio : kRatios) {
            const double x = ratio * n;
            if (std::isinf(x)) continue;
            // The fourth root of pi^2 s^2 / 4.
            const double part = std::sqrt((x - n) / x * (1 + n / x));
            const double root = std::sqrt(part * kHalfPi.high) * std::sqrt(x);
            const double j = BesselJ(n, x) * root;
            const double y = BesselY(n, x) * root;
            const double t = std::sqrt((ratio - 1) * (ratio + 1));
            const double phase = n * (t - std::atan(t));
            EXPECT_NEAR(j * j + y * y, 1, 0.1 / (phase * phase) + 4e-15) << n << " " << ratio;
        }
    }
}

// For x far beyond n^2 orders differ by quarter turns only: J(n+2) = -J(n), Y(n) = J(n+1) up to the
// sign. The phase is then exactly x plus a multiple of a quarter turn.
TEST(BesselLargeOrders, FarBeyondTheSquareOfTheOrder) {
    for (const double x : {1e60, 1.5e100, 1e300}) {
        for (const double n : {100002.0, 1e6, 1e12, 9007199254740988.0}) {
            const double sign = std::fmod(n, 4) == 0 ? 1 : -1;
            EXPECT_DOUBLE_EQ(BesselJ(n, x), sign * BesselJ(0, x)) << n << " " << x;
            EXPECT_DOUBLE_EQ(BesselY(n, x), sign * BesselY(0, x)) << n << " " << x;
        }
    }
}

// J(-n) = (-1)^n J(n), which is also J(n) at -x; the same factor for Y. The parity of whole orders
// is exact up to the largest.
TEST(BesselLargeOrders, Parity) {
    for (const double n :
         {100001.0, 100002.0, 1e9 + 1, 1e12 - 1, 1e12, 9007199254740991.0, 1e300}) {
        const double sign = std::fmod(n, 2) == 0 ? 1 : -1;
        for (const double x : {n, n * 1.25, n * 3.5}) {
            const double j = BesselJ(n, x);
            EXPECT_NE(j, 0);
            EXPECT_EQ(BesselJ(-n, x), sign * j) << n << " " << x;
            EXPECT_EQ(BesselJ(n, -x), sign * j) << n << " " << x;
            EXPECT_EQ(BesselJ(-n, -x), j) << n << " " << x;
            EXPECT_EQ(BesselY(-n, x), sign * BesselY(n, x)) << n << " " << x;
        }
    }
}

// Half-integral orders: J(-n) is Y(n) and Y(-n) is J(n), up to the sign (10.4.7).
TEST(BesselLargeOrders, HalfIntegralOrders) {
    for (const double n : {100000.5, 100001.5, 1e9 + 0.5, 1e12 + 0.5}) {
        const double sine = std::fmod(n, 2) == 0.5 ? 1 : -1;
        for (const double x : {n - 3 * std::cbrt(n), n, n * 1.5, n * 4}) {
            EXPECT_EQ(BesselJ(-n, x), -sine * BesselY(n, x)) << n << " " << x;
            EXPECT_EQ(BesselY(-n, x), sine * BesselJ(n, x)) << n << " " << x;
        }
    }
}

// J(n) at x = n is 2^(1/3) / (3^(2/3) Gamma(2/3) n^(1/3)), Y(n) there is -sqrt(3) times that; the
// next term has the relative size n^(-4/3) (10.19.8).
TEST(BesselLargeOrders, ArgumentsEqualToTheOrder) {
    for (const double n : {1e13, 1e30, 1e300}) {
        const double expected = std::cbrt(2 / n) / (std::cbrt(9.0) * std::tgamma(2.0 / 3));
        EXPECT_NEAR(BesselJ(n, n) / expected, 1, 1e-15) << n;
        EXPECT_NEAR(BesselY(n, n) / expected, -std::sqrt(3.0), 2e-15) << n;
    }
}

TEST(BesselLargeOrders, Ends) {
    const struct {
        const char* call;
        double value;
        double expected;
    } rows[] = {
        {"J(100001,0)", BesselJ(100001, 0), 0},
        {"J(-1e12,0)", BesselJ(-1e12, 0), 0},
        {"J(100001,5e-324)", BesselJ(100001, DBL_TRUE_MIN), 0},
        {"J(100001,9e4)", BesselJ(100001, 9e4), 0},
        {"J(1e12,9.9e11)", BesselJ(1e12, 9.9e11), 0},
        {"J(1e300,1)", BesselJ(1e300, 1), 0},
        {"J(-1e300,1)", BesselJ(-1e300, 1), 0},
        {"abs(Y(-100001.5,9e4))", std::fabs(BesselY(-100001.5, 9e4)), 0},
        {"J(largest,1)", BesselJ(DBL_MAX, 1), 0},
        {"J(1e12,inf)", BesselJ(1e12, kInfinity), 0},
        {"Y(100001,5e-324)", BesselY(100001, DBL_TRUE_MIN), -kInfinity},
        {"Y(1e12,9.9e11)", BesselY(1e12, 9.9e11), -kInfinity},
        {"Y(1e300,1e299)", BesselY(1e300, 1e299), -kInfinity},
        {"Y(-1e300,1e299)", BesselY(-1e300, 1e299), -kInfinity},
        {"Y(100,5e-324)", BesselY(100, DBL_TRUE_MIN), -kInfinity},
        {"Y(1e110,5e-324)", BesselY(1e110, DBL_TRUE_MIN), -kInfinity},
        {"Y(1e120,1e-250)", BesselY(1e120, 1e-250), -kInfinity},
        {"Y(-1e120,1e-250)", BesselY(-1e120, 1e-250), -kInfinity},
        {"Y(1e150,1e-200)", BesselY(1e150, 1e-200), -kInfinity},
        {"Y(1e300,1e-100)", BesselY(1e300, 1e-100), -kInfinity},
        {"Y(1e308,1)", BesselY(1e308, 1), -kInfinity},
        {"Y(largest,5e-324)", BesselY(DBL_MAX, DBL_TRUE_MIN), -kInfinity},
        {"Y(-largest,5e-324)", BesselY(-DBL_MAX, DBL_TRUE_MIN), -kInfinity},
        {"J(1e110,5e-324)", BesselJ(1e110, DBL_TRUE_MIN), 0},
        {"J(1e300,1e-100)", BesselJ(1e300, 1e-100), 0},
        {"J(largest,5e-324)", BesselJ(DBL_MAX, DBL_TRUE_MIN), 0},
        {"Y(-100001,9e4)", BesselY(-100001, 9e4), kInfinity},
        {"Y(1e12,inf)", BesselY(1e12, kInfinity), 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.value, row.expected) << row.call;
    EXPECT_TRUE(std::isfinite(BesselJ(DBL_MAX, DBL_MAX)) && BesselJ(DBL_MAX, DBL_MAX) > 0);
    EXPECT_TRUE(std::isfinite(BesselY(1e5 + 1, DBL_MAX)));
}

// J is denormal just before it vanishes, and Y there is just before its overflow.
TEST(BesselLargeOrders, GoGraduallyToTheEndsOfTheRange) {
    for (const double n : {100001.0, 1e9}) {
        double before = 0;
        bool denormal = false;
        for (double width = -140; width < -60; width += 1 / 16.0) {
            const double x = n + width * std::cbrt(n / 2);
            const double j = BesselJ(n, x);
            EXPECT_TRUE(j > before || (j == before && j < DBL_MIN)) << n << " " << width;
            denormal = denormal || (j > 0 && j < DBL_MIN);
            EXPECT_TRUE(j <= 1e-300 || std::isfinite(BesselY(n, x))) << n << " " << width;
            before = j;
        }
        EXPECT_TRUE(denormal);
        EXPECT_GT(before, DBL_MIN);
    }
}

}  // namespace
}  // namespace kalvex::specfun
