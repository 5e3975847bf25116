// Identities and closed forms of the Bessel functions (DLMF chapter 10) and published values, on
// both sides of every seam between two methods.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kUnit = DBL_EPSILON / 2;

/// The next order of each of these is exact too.
constexpr double kOrders[] = {
    0,    1e-300, 0x1p-33, 0.25,  0.5 - 0x1p-25, 0.5, 0.5 + 0x1p-23,  1,   1.75, 2, 3 - 0x1p-33, 7,
    20.5, 31,     50,      99.25, 150.5,         400, 1000 - 0x1p-30, 1000};
constexpr double kArguments[] = {1e-8, 0.3,  1.49, 1.51, 1.99, 2.01,   6,     10.99, 17.99, 19.9,
                                 20.1, 21.9, 22.1, 63.9, 64.1, 24.9,   25.1,  50,    100,   150.5,
                                 399,  401,  720,  999,  1000, 1001.5, 12345, 1e6};

// J(n+1) Y(n) - J(n) Y(n+1) = 2/(pi x) (10.5.2).
TEST(Bessel, WronskianOfJAndY) {
    for (const double n : kOrders) {
        for (const double x : kArguments) {
            const double y = BesselY(n, x);
            const double next = BesselY(n + 1, x);
            const double j = BesselJ(n, x);
            const double nextJ = BesselJ(n + 1, x);
            if (std::isinf(next) || (nextJ < DBL_MIN && x < n)) continue;
            const double scale = std::fabs(nextJ * y) + std::fabs(j * next);
            EXPECT_NEAR(nextJ * y - j * next, 2 / (M_PI * x), 8 * (n + 1) * kUnit * scale)
                << n << " " << x;
        }
    }
}

// J(n) J(1-n) + J(-n) J(n-1) = 2 sin(n pi)/(pi x) (10.5.1).
TEST(Bessel, CrossProductOfReflectedOrders) {
    for (const double n : {0.125, 0.5, 0.75, 2.25, 7.5, 19.875, 60.25}) {
        for (const double x : {0.3, 1.49, 1.51, 6.0, 10.99, 21.9, 22.1, 50.0, 401.0}) {
            const double first = BesselJ(n, x) * BesselJ(1 - n, x);
            const double second = BesselJ(-n, x) * BesselJ(n - 1, x);
            const double expected = 2 * std::sin(std::remainder(n, 2) * M_PI) / (M_PI * x);
            EXPECT_NEAR(first + second, expected,
                        8 * kUnit * (std::fabs(first) + std::fabs(second) + std::fabs(expected)))
                << n << " " << x;
        }
    }
}

// The same far beyond the orders that a recurrence could reach, at x where neither overflows. The
// relative slope of a value there is as large as its order.
TEST(Bessel, WronskianOfIAndKOfHugeOrders) {
    for (const double n : {2e5, 1e6 + 0.5, 3.7e8, 1e11}) {
        for (const double ratio : {0.66274341934918, 0.6627434193}) {
            const double x = ratio * n;
            const double sum =
                BesselI(n, x) * BesselK(n + 1, x) + BesselI(n + 1, x) * BesselK(n, x);
            EXPECT_NEAR(sum * x, 1, 8 * kUnit * n) << n << " " << ratio;
        }
    }
    EXPECT_EQ(BesselI(1e12, 1), 0);
    EXPECT_THROW(static_cast<void>(BesselK(1e12, 1)), ap::ap_error);
    EXPECT_THROW(static_cast<void>(BesselI(1e13, 1)), ap::ap_error);
}

// I(n) K(n+1) + I(n+1) K(n) = 1/x (10.28.2), all terms positive.
TEST(Bessel, WronskianOfIAndK) {
    for (const double n : kOrders) {
        for (const double x : kArguments) {
            if (x > 700 || (n > 100 && x < n / 2)) continue;
            if (x == 1e-8 && n > 30) continue;
            const double value =
                BesselI(n, x) * BesselK(n + 1, x) + BesselI(n + 1, x) * BesselK(n, x);
            EXPECT_NEAR(value * x, 1, 8 * kUnit) << n << " " << x;
        }
    }
}

// f(n-1) + f(n+1) = 2n/x f(n) for J and Y (10.6.1), with signs for I and K (10.29.1).
TEST(Bessel, Recurrences) {
    const struct {
        const char* name;
        double (*f)(double, double);
        double sign;
        double factor;
    } rows[] = {
        {"J", BesselJ, 1, 1}, {"Y", BesselY, 1, 1}, {"I", BesselI, -1, 1}, {"K", BesselK, -1, -1}};
    for (const auto& row : rows) {
        for (const double n : {1.0, 1.25, 4.5, 9.0, 10.75, 30.0, 60.5, 500.0}) {
            for (const double x : {0.7, 1.4, 1.6, 1.9, 2.1, 10.9, 20.1, 21.9, 22.1, 26.0, 63.0,
                                   65.0, 300.0, 690.0}) {
                if (n == 500 && x < 300) continue;
                const double below = row.f(n - 1, x);
                const double above = row.f(n + 1, x);
                const double middle = 2 * n / x * row.f(n, x);
                const double scale = std::fabs(below) + std::fabs(above) + std::fabs(middle);
                EXPECT_NEAR(below + row.sign * above, row.factor * middle, 4 * kUnit * scale)
                    << row.name << " " << n << " " << x;
            }
        }
    }
}

// 10.16.1, 10.39.1, 10.39.2.
TEST(Bessel, HalfIntegralOrders) {
    for (const double x : {1e-100, 1e-10, 0.1, 1.0, 2.4, 2.6, 6.0, 11.5, 19.0, 40.0, 600.0}) {
        const double root = std::sqrt(2 / (M_PI * x));
        EXPECT_NEAR(BesselJ(0.5, x), root * std::sin(x), 4 * kUnit * root);
        EXPECT_NEAR(BesselJ(-0.5, x), root * std::cos(x), 4 * kUnit * root);
        EXPECT_NEAR(BesselY(0.5, x), -root * std::cos(x), 4 * kUnit * root);
        EXPECT_NEAR(BesselY(-0.5, x), root * std::sin(x), 4 * kUnit * root);
        EXPECT_NEAR(BesselI(0.5, x) / (root * std::sinh(x)), 1, 8 * kUnit);
        EXPECT_NEAR(BesselK(0.5, x) * std::exp(x) / root * 2 / M_PI, 1, 8 * kUnit);
        EXPECT_NEAR(BesselK(1.5, x) / BesselK(0.5, x) / (1 + 1 / x), 1, 8 * kUnit);
    }
    const double ratio = BesselJ(0.5, 1e-300) / std::sqrt(2e-300 / M_PI);
    EXPECT_NEAR(ratio, 1, 4 * kUnit);
}

// Published values with this many digits (Abramowitz and Stegun, tables 9.1 to 9.11).
TEST(Bessel, PublishedValues) {
    const struct {
        const char* call;
        double value;
        double expected;
        double bound;
    } rows[] = {
        {"J(0,1)", BesselJ(0, 1), 0.765197686557967, 1e-15},
        {"J(0,10)", BesselJ(0, 10), -0.245935764451348, 1e-15},
        {"J(1,5)", BesselJ(1, 5), -0.3275791376, 1e-10},
        {"J(2,10)", BesselJ(2, 10), 0.2546303137, 1e-10},
        {"J(10,10)", BesselJ(10, 10), 0.207486106633, 1e-12},
        {"J(50,50)", BesselJ(50, 50), 0.1214090219, 1e-10},
        {"J(100,100)", BesselJ(100, 100), 0.09636667330, 1e-11},
        {"Y(0,1)", BesselY(0, 1), 0.08825696422, 1e-11},
        {"Y(1,1)", BesselY(1, 1), -0.7812128213, 1e-10},
        {"Y(0,8)", BesselY(0, 8), 0.2235214894, 1e-10},
        {"Y(10,10)", BesselY(10, 10), -0.3598141522, 1e-10},
        {"I(0,1)", BesselI(0, 1), 1.266065878, 1e-9},
        {"I(1,1)", BesselI(1, 1), 0.5651591040, 1e-10},
        {"K(0,1)", BesselK(0, 1), 0.4210244382, 1e-10},
        {"K(1,1)", BesselK(1, 1), 0.6019072302, 1e-10},
    };
    for (const auto& row : rows)
        EXPECT_NEAR(row.value, row.expected, row.bound) << row.call;
}

// Whole orders are not special: the functions are smooth in the order.
TEST(Bessel, NearlyWholeOrders) {
    for (const double n : {0.0, 1.0, 2.0, 7.0, 31.0}) {
        for (const double x : {0.3, 1.4, 1.6, 2.4, 6.0, 10.9, 21.9, 22.1, 60.0}) {
            for (const double step : {1e-3, 1e-7, 1e-10, 1e-14}) {
                for (const auto f : {BesselJ, BesselY, BesselK, BesselI}) {
                    if (n - step < 0 && f != BesselJ && f != BesselY && f != BesselK) continue;
                    const double middle = f(n, x);
                    const double mean = (f(n + step, x) + f(n - step, x)) / 2;
                    const double scale = std::fabs(middle) + 1 / std::sqrt(x);
                    EXPECT_NEAR(mean, middle, (40 * step * step + 4 * kUnit) * scale)
                        << n << " " << x;
                }
            }
        }
    }
}

// Next to a zero x f'/f grows like 1/distance. What counts there is the error relative to the
// modulus.
TEST(Bessel, SmallNearTheirZeros) {
    EXPECT_LT(std::fabs(BesselJ(0, 2.4048255576957729)), 2 * DBL_EPSILON);
    EXPECT_LT(std::fabs(BesselJ(1, 3.8317059702075125)), 2 * DBL_EPSILON);
    EXPECT_LT(std::fabs(BesselY(0, 0.89357696627916752)), 2 * DBL_EPSILON);
    EXPECT_LT(std::fabs(BesselY(0, 3.9576784193148578)), 2 * DBL_EPSILON);
}

TEST(Bessel, BeyondTheRangeOfDoubles) {
    const struct {
        const char* call;
        double value;
        double expected;
    } rows[] = {
        {"J(1,5e-324)", BesselJ(1, DBL_TRUE_MIN), 0},
        {"J(1000,1e-300)", BesselJ(1000, 1e-300), 0},
        {"J(1000,63)", BesselJ(1000, 63), 0},
        {"J(99999.5,5)", BesselJ(99999.5, 5), 0},
        {"J(99999.5,9e4)", BesselJ(99999.5, 5e4), 0},
        {"J(2.25,inf)", BesselJ(2.25, kInfinity), 0},
        {"Y(1000,1e-300)", BesselY(1000, 1e-300), -kInfinity},
        {"Y(97.49,5e-324)", BesselY(97.49, DBL_TRUE_MIN), -kInfinity},
        {"Y(-1000.25,1)", BesselY(-1000.25, 1), -kInfinity},
        {"Y(-1000.5,1)", BesselY(-1000.5, 1), 0},
        {"Y(-1.5000000000000002,5e-324)", BesselY(-1.5 - 0x1p-52, DBL_TRUE_MIN), -kInfinity},
        {"Y(-2.5000000000000004,5e-324)", BesselY(-2.5 - 0x1p-51, DBL_TRUE_MIN), kInfinity},
        {"I(1000,60)", BesselI(1000, 60), 0},
        {"I(5000.5,60)", BesselI(5000.5, 60), 0},
        {"K(0,1e300)", BesselK(0, 1e300), 0},
        {"K(1000,1e300)", BesselK(1000, 1e300), 0},
        {"K(5000,1e300)", BesselK(5000, 1e300), 0},
        {"I(0.5,0)", BesselI(0.5, 0), 0},
        {"I(0,0)", BesselI(0, 0), 1},
        {"J(0.5,0)", BesselJ(0.5, 0), 0},
        {"J(-4,0)", BesselJ(-4, 0), 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.value, row.expected) << row.call;
}

// Above order 50 I and K come from other expansions; both methods must agree there.
TEST(Bessel, UniformExpansionsMeet) {
    const double above = std::nextafter(50.0, kInfinity);
    for (const double x : {1e-3, 3.0, 33.0, 50.0, 210.0, 650.0}) {
        EXPECT_NEAR(BesselK(above, x) / BesselK(50, x), 1, 2e-13) << x;
        EXPECT_NEAR(BesselI(above, x) / BesselI(50, x), 1, 2e-13) << x;
    }
}

std::string ErrorOf(const std::function<double()>& call) {
    try {
        return "value " + std::to_string(call());
    } catch (const ap::ap_error& error) {
        return error.msg;
    }
}

// The squares of these arguments are out of the range of doubles.
TEST(Bessel, EndsOfTheArguments) {
    for (const double n : {0.0, 1e-300, 0.25, 7.0, 23.5, 24.0, 99.0}) {
        const double j = BesselJ(n, DBL_MAX);
        const double y = BesselY(n, DBL_MAX);
        EXPECT_NEAR(std::hypot(j, y) * 1e154, std::sqrt(2 / (M_PI * (DBL_MAX / 1e300))) * 1e4,
                    1e-15)
            << n;
    }
    EXPECT_NEAR(BesselY(0.5, DBL_TRUE_MIN) / (std::sqrt(2 / M_PI) / std::sqrt(DBL_TRUE_MIN)), -1,
                4 * kUnit);
    EXPECT_NEAR(BesselK(0.5, DBL_TRUE_MIN) / (std::sqrt(M_PI / 2) / std::sqrt(DBL_TRUE_MIN)), 1,
                4 * kUnit);
}

TEST(Bessel, Errors) {
    const struct {
        std::function<double()> call;
        const char* message;
    } rows[] = {
        {[] { return BesselJ(0.5, -1); }, "Domain error in BesselJV"},
        {[] { return BesselJ(-0.5, 0); }, "Overflow in BesselJV"},
        {[] { return BesselJ(-2.5, 1e-300); }, "Overflow in BesselJV"},
        {[] { return BesselJ(-1000.25, 1); }, "Overflow in BesselJV"},
        {[] { return BesselJ(-100001.25, 9e4); }, "Overflow in BesselJV"},
        {[] { return BesselJ(-1e12 - 0.25, 9e11); }, "Overflow in BesselJV"},
        {[] { return BesselJ(100001.5, -1); }, "Domain error in BesselJV"},
        {[] { return BesselJ(-100001.5, 0); }, "Overflow in BesselJV"},
        {[] { return BesselI(0.5, -1); }, "Domain error in BesselIV"},
        {[] { return BesselI(-0.5, 1); }, "Domain error in BesselIV"},
        {[] { return BesselI(0, 714); }, "Overflow in BesselIV"},
        {[] { return BesselI(2.25, 1e300); }, "Overflow in BesselIV"},
        {[] { return BesselI(5000, 1e300); }, "Overflow in BesselIV"},
        {[] { return BesselK(1000, 300); }, "Overflow in BesselKN"},
        {[] { return BesselK(1.5, 1e-300); }, "Overflow in BesselKN"},
        {[] { return BesselK(5000, 1e-300); }, "Overflow in BesselKN"},
        {[] { return BesselI(kInfinity, 1); }, "BesselI: the order is too large"},
        {[] { return BesselY(std::nan(""), 1); }, "BesselY: the order is too large"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ErrorOf(row.call), row.message);
}

}  // namespace
}  // namespace kalvex::specfun
