// Hermite polynomials at the ends of their range: the largest x of a degree, the degrees that have
// no finite value except the zero in the middle, and those that are finite again at a tiny x.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

bool Overflows(double degree, double x) {
    try {
        static_cast<void>(Hermite(degree, x));
    } catch (const ap::ap_error& error) {
        return error.msg == "Overflow in Hermite";
    }
    return false;
}

TEST(Hermite, IsFiniteUpToTheEndOfTheRange) {
    EXPECT_EQ(Hermite(1, DBL_MAX / 2), DBL_MAX);
    EXPECT_TRUE(Overflows(1, 0x1p1023));
    const double below = std::nextafter(0x1p511, 0);
    EXPECT_EQ(Hermite(2, below), DBL_MAX - 0x1p971);  // 2^1024 (1 - 2^-53)^2, rounded
    EXPECT_EQ(Hermite(2, -below), DBL_MAX - 0x1p971);
    EXPECT_TRUE(Overflows(2, 0x1p511));
    EXPECT_EQ(Hermite(3, 0x1p340), 0x1p1023);
    EXPECT_EQ(Hermite(3, -0x1p340), -0x1p1023);
    EXPECT_TRUE(Overflows(3, 0x1p341));
    EXPECT_TRUE(Overflows(600, 1e300));
}

TEST(Hermite, OddDegreesVanishInTheMiddle) {
    for (const double n : {1.0, 3.0, 5.0, 601.0, 99999.0, 1e5 + 3, 1e9 + 1, 0x1p53 - 1}) {
        for (const double x : {0.0, -0.0}) {
            EXPECT_EQ(Hermite(n, x), 0) << n;
            EXPECT_FALSE(std::signbit(Hermite(n, x))) << n;
        }
    }
}

TEST(Hermite, LargeDegreesOverflowElsewhere) {
    for (const double degree : {300.0, 602.0, 1e5, 0x1p53, 1e300})
        EXPECT_TRUE(Overflows(degree, 0)) << degree;
    for (const double degree : {493.0, 601.0, 1e5 + 1, 0x1p53 - 1, 1e300}) {
        for (const double x : {DBL_TRUE_MIN, -1e-300, 0.5, -40.0, 1e300})
            EXPECT_TRUE(Overflows(degree, x)) << degree << " " << x;
    }
}

// H(n+2) / H(n) is -2 (n + 2) for odd n next to 0.
TEST(Hermite, TinyArgumentsBringOddDegreesBack) {
    for (const double x : {DBL_TRUE_MIN, -0x1p-1060}) {
        for (double degree = 1; degree < 480; degree += 2) {
            const double ratio = Hermite(degree + 2, x) / Hermite(degree, x);
            EXPECT_NEAR(ratio / (-2 * (degree + 2)), 1, 4e-16) << degree << " " << x;
        }
    }
}

}  // namespace
}  // namespace kalvex::specfun
