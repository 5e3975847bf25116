// Laguerre polynomials at the ends of their range and of large degrees: closed forms next to 0, the
// recurrence across the seams of the methods, and the limit, a Bessel function.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <string>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

std::string ErrorOf(double degree, double x) {
    try {
        static_cast<void>(Laguerre(degree, x));
    } catch (const ap::ap_error& error) {
        return error.msg;
    }
    return "";
}

// Beyond 1e20 L(2,x) is x^2/2 as a double, and L(3,x) is -x^3/6.
TEST(Laguerre, IsFiniteUpToTheEndOfTheRange) {
    const double last = 1.8961503816218353e154;  // its square is below 2^1025
    for (const double x : {1e20, 1.34e154, 1.3407807929942596e154, 1.5e154, 1.8e154, last}) {
        EXPECT_EQ(Laguerre(2, x), x / 2 * x) << x;
        EXPECT_EQ(Laguerre(2, -x), x / 2 * x) << x;
    }
    const double beyond = std::nextafter(last, INFINITY);
    for (const double x : {beyond, 0x1p513, 1e308, DBL_MAX}) {
        EXPECT_EQ(ErrorOf(2, x), "Overflow in Laguerre") << x;
        EXPECT_EQ(ErrorOf(2, -x), "Overflow in Laguerre") << x;
    }
    EXPECT_NEAR(Laguerre(3, -4.7e102) / 1.7303833333333333e307, 1, 4e-16);
    EXPECT_EQ(Laguerre(1, -DBL_MAX), DBL_MAX);
}

TEST(Laguerre, LargeDegreesNextToZero) {
    for (const double n : {599.0, 600.0, 1e5, 1e9, 0x1p53, 1e20, 1e300}) {
        EXPECT_EQ(Laguerre(n, 0), 1) << n;
        const double h = 0x1p-30 / n;  // L = 1 - n h + n (n-1) h^2 / 4
        const double square = n * h * ((n - 1) * h) / 4;
        EXPECT_NEAR(Laguerre(n, h), 1 - n * h + square, 2e-16) << n;
        EXPECT_NEAR(Laguerre(n, -h), 1 + n * h + square, 3e-16) << n;
    }
    EXPECT_EQ(Laguerre(1e5, DBL_TRUE_MIN), 1);
}

// (n+1) L(n+1) = (2n+1-x) L(n) - n L(n-1): the recurrence of low degrees, the series and the
// expansion must continue one another.
TEST(Laguerre, MethodsContinueOneAnother) {
    for (const double n : {598.0, 599.0, 600.0, 601.0, 700.0, 3000.0}) {
        for (const double x : {-30.0, -1.5, 0.1, 0.3, 0.4, 0.45, 0.47, 0.478, 0.48, 0.6, 3.0, 77.0,
                               500.0, 1200.0, 1400.0}) {
            const double now = Laguerre(n, x);
            const double before = Laguerre(n - 1, x);
            const double next = ((2 * n + 1 - x) * now - n * before) / (n + 1);
            const double scale = std::fabs(before) + std::fabs(now);
            EXPECT_NEAR((Laguerre(n + 1, x) - next) / scale, 0, 2e-15) << n << " " << x;
        }
    }
}

// L(n,x) tends to J(0, 2 sqrt(x (n + 1/2))) exp(x/2) as the degree grows.
TEST(Laguerre, ComesToBesselFunctions) {
    const double n = 0x1p50;
    for (const double z : {0.5, 3.0, 20.0, 33.9, 34.1, 40.0, 1000.0, 1e5}) {
        const double x = z * z / (4 * n + 2);
        EXPECT_NEAR(Laguerre(n, x) * std::exp(-x / 2), BesselJ(0, z), 1e-15 * std::sqrt(z + 1))
            << z;
    }
}

TEST(Laguerre, LargeDegreesThatOverflow) {
    for (const double n : {600.0, 1e5, 0x1p53}) {
        for (const double x :
             {-1e5, -1e100, -DBL_MAX, 1601.0, 1e5, DBL_MAX, double(INFINITY), -double(INFINITY)})
            EXPECT_EQ(ErrorOf(n, x), "Overflow in Laguerre") << n << " " << x;
    }
    EXPECT_EQ(ErrorOf(1e30, 100), "Laguerre: the degree is too large");
}

}  // namespace
}  // namespace kalvex::specfun
