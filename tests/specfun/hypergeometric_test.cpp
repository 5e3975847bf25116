// Closed forms (DLMF 15.4), transformations and contiguous relations (15.5) of the Gauss
// hypergeometric function.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

const double kPlaces[] = {-0.999999, -0.9, -0.5, -0.31, -0.1, -1e-9, 1e-300, 1e-5,
                          0.2,       0.5,  0.7,  0.89,  0.91, 0.97,  0.999,  1 - 1e-9};

double Ulps(double value, double expected) {
    if (value == expected) return 0;
    const double unit = std::nextafter(std::fabs(expected), kInfinity) - std::fabs(expected);
    return std::fabs(value - expected) / unit;
}

TEST(Hypergeometric, ClosedForms) {
    const struct {
        double a;
        double b;
        double c;
        std::function<double(double)> expected;
    } rows[] = {
        {1, 1, 2, [](double x) { return -std::log1p(-x) / x; }},
        {1, 1, 1, [](double x) { return 1 / (1 - x); }},
        {3, 0.7, 0.7, [](double x) { return 1 / ((1 - x) * (1 - x) * (1 - x)); }},
        {0, 5, -3, [](double) { return 1.0; }},
        {-1, 1, 2, [](double x) { return 1 - x / 2; }},
        {-2, 1, 1, [](double x) { return (1 - x) * (1 - x); }},
        {1.5, 2, 1, [](double x) { return (1 + x / 2) / std::pow(1 - x, 2.5); }},
    };
    for (const auto& row : rows) {
        for (const double x : kPlaces) {
            EXPECT_LE(Ulps(Hypergeometric2F1(row.a, row.b, row.c, x), row.expected(x)), 6)
                << row.a << " " << row.b << " " << row.c << " " << x;
        }
    }
}

TEST(Hypergeometric, ClosedFormsOfSquares) {
    for (const double root : {0.015625, 0.25, 0.625, 0.875, 0.9375, 0.984375}) {
        const double z = root * root;  // exact
        EXPECT_LE(Ulps(Hypergeometric2F1(0.5, 1, 1.5, z), std::atanh(root) / root), 4) << root;
        EXPECT_LE(Ulps(Hypergeometric2F1(0.5, 1, 1.5, -z), std::atan(root) / root), 3) << root;
        EXPECT_LE(Ulps(Hypergeometric2F1(0.5, 0.5, 1.5, z), std::asin(root) / root), 4) << root;
        EXPECT_LE(Ulps(Hypergeometric2F1(0.5, 0.5, 1.5, -z), std::asinh(root) / root), 4) << root;
        EXPECT_LE(Ulps(Hypergeometric2F1(0.5, 0.5, 1, z), 2 / M_PI * std::comp_ellint_1(root)), 6)
            << root;
    }
}

// (c-a-b) F = (c-a) F(a-1) - b (1-x) F(b+1) (DLMF 15.5.13), across all the methods.
TEST(Hypergeometric, ContiguousRelation) {
    const double parameters[][3] = {{0.5, 0.75, 2.125}, {1, 1, 2},        {3.5, -2.25, 1.5},
                                    {10, 12.5, 5.25},   {-7.5, -3.5, 2},  {0.25, 0.5, 0.75},
                                    {40, 0.5, 80},      {-20.5, 30, 2.5}, {1, 2, 3 + 0x1p-40}};
    for (const auto& p : parameters) {
        for (const double x : kPlaces) {
            const double a = p[0];
            const double b = p[1];
            const double c = p[2];
            const double left = (c - a - b) * Hypergeometric2F1(a, b, c, x);
            const double first = (c - a) * Hypergeometric2F1(a - 1, b, c, x);
            const double second = b * (1 - x) * Hypergeometric2F1(a, b + 1, c, x);
            const double size = std::fabs(left) + std::fabs(first) + std::fabs(second);
            EXPECT_NEAR((left - first + second) / size, 0, 1e-15)
                << a << " " << b << " " << c << " " << x;
        }
    }
}

TEST(Hypergeometric, SymmetricInItsFirstTwo) {
    for (const double x : kPlaces) {
        for (const double a : {0.5, -3.0, 7.25, 30.0}) {
            EXPECT_LE(Ulps(Hypergeometric2F1(a, 1.3, 2.7, x), Hypergeometric2F1(1.3, a, 2.7, x)), 2)
                << a << " " << x;
        }
    }
}

// F(-n,n+1;1;(1-t)/2) is the Legendre polynomial; the power series loses every digit from
// degree 50 on.
TEST(Hypergeometric, LegendreOfHighDegree) {
    for (const double n : {5.0, 20.0, 50.0, 100.0, 300.0}) {
        for (const double t : {-0.75, -0.3125, 0.125, 0.6875, 0.96875}) {
            EXPECT_NEAR(Hypergeometric2F1(-n, n + 1, 1, (1 - t) / 2), Legendre(n, t), 1e-15)
                << n << " " << t;
        }
    }
}

// The finite sum may end before c meets 0; integral differences c-a-b need no special case.
TEST(Hypergeometric, FiniteSums) {
    EXPECT_EQ(Hypergeometric2F1(-2, 3, -4, 0.5), 1 + 0.75 + 0.25);
    EXPECT_EQ(Hypergeometric2F1(-2, 1, -2, 0.5), 1 + 0.5 + 0.25);
    EXPECT_EQ(Hypergeometric2F1(4, -1, 2, 0.25), 0.5);
    EXPECT_EQ(Hypergeometric2F1(7, 0, -1, 0.25), 1);
    EXPECT_EQ(Hypergeometric2F1(0.5, -3, -3, 0.5), 1 + 0.25 + 0.09375 + 0.0390625);
    EXPECT_EQ(Hypergeometric2F1(0.3, 0.4, 0.5, 0), 1);
}

// At a pole two polynomials have Euler's other form; more than one of the sums ends there.
TEST(Hypergeometric, PolynomialsAtPoles) {
    const double last = 1 - 0x1p-24;
    EXPECT_EQ(Hypergeometric2F1(-7, -4, -7, last), 0x1p-96);
    EXPECT_EQ(Hypergeometric2F1(-4, -7, -7, last), 0x1p-96);
    EXPECT_EQ(Hypergeometric2F1(-1, -725, -1, 0.5), -361.5);
    EXPECT_EQ(Hypergeometric2F1(-725, -1, -1, 0.5), -361.5);
    EXPECT_EQ(Hypergeometric2F1(-60, 60, -61, 0), 1);
    EXPECT_LE(Ulps(Hypergeometric2F1(-150, -300, -300, 0.5), 0x1p-150), 1);
}

// Next to the poles in c and the zeros in b the first terms say little about the later ones.
TEST(Hypergeometric, NextToPoles) {
    EXPECT_NEAR(Hypergeometric2F1(1234.5, 1e-12, 2.5, -0.1), 1 - 4.124e-12, 1e-14);
    EXPECT_NEAR(Hypergeometric2F1(2.5, 2.5, 1e-12, 0.5) * 1e-12,
                6.25 * 0.5 * Hypergeometric2F1(3.5, 3.5, 2, 0.5), 1e-9);
    EXPECT_NEAR(Hypergeometric2F1(2.5, 2.5, 1e-12, 0.999) * 1e-12 /
                    (6.25 * 0.999 * Hypergeometric2F1(3.5, 3.5, 2, 0.999)),
                1, 1e-10);
}

// One parameter or x next to 0: what is linear there.
TEST(Hypergeometric, NextToZero) {
    const double least = 5e-324;
    const double last = 1 - 0x1p-53;
    EXPECT_EQ(Hypergeometric2F1(least, 2.5, -4.2, 0.9999999), 1);
    EXPECT_EQ(Hypergeometric2F1(-1.36, -1.2e-74, -4.16, last), 1);
    EXPECT_EQ(Hypergeometric2F1(1e-20, -527.13, 633, -0.999999), 1);
    EXPECT_EQ(Hypergeometric2F1(-3, 1.34, -4 * least, 4096 * least), 1 + 3 * 1.34 * 1024);
    EXPECT_EQ(Hypergeometric2F1(5, 7.25, -500.5, 1e-310), 1);
    EXPECT_EQ(Hypergeometric2F1(0.5, 3.5, -2500.5, -1e-310), 1);
    // c next to a negative integer as well
    EXPECT_EQ(Hypergeometric2F1(-3 * least, -0.4, -0.99999999999999967, 0.99999999999999223), 1);
    EXPECT_EQ(Hypergeometric2F1(2 * least, 0.31, -0.99999999999999978, 0.99999861033526505), 1);
}

// c-a or c an integer but for the last bits, or less: right, whatever cancels. The values are those
// of arithmetic with 140 bits.
TEST(Hypergeometric, NextToIntegers) {
    const struct {
        double a, b, c, x, expected;
    } rows[] = {
        {-7.2, -7.2, -8.2, 0.999, 2.2058651455243319e-19},
        {-3.4, -3.4, -4.4, 0.9999, 1.9410602399485240e-10},
        {-9.8, -7.3, -8.3, 0.99, -1.2105251919504083e-15},
        {-0.4, -3.4, -1.4, 0.9999999999999999, -3.6673619687667404e-16},
        {-254.31999999999999, 5.0999999999999996, -258.32000000000011, -0.99999999999999989,
         0.030329241952697938},
        {-2, 4.74, 1.7400000000089322, 0.999, 1.2525352813795836},
        {-2.47, 2.86, -0.4699999650918868, 0.999, 891.78803663166627},
        {4.8697315498648602e-11, -7.89, -2.9999999940481676, 0.999, 0.99181809691286049},
        {1.7653984501462515e-14, 1.7653984501462515e-14, -0.99999999999998235, 0.99999961412737626,
         0.99999995424574194},
    };
    for (const auto& row : rows) {
        EXPECT_LE(Ulps(Hypergeometric2F1(row.a, row.b, row.c, row.x), row.expected), 2) << row.a;
        EXPECT_LE(Ulps(Hypergeometric2F1(row.b, row.a, row.c, row.x), row.expected), 2) << row.a;
    }
}

// F(-1,b;c;x) = 1 - b x/c and F(-2,b;c;x) = 1 - 2 b x/c + b (b+1) x^2/(c (c+1)): for c next to 0
// what does not have it below counts where the rest cancels.
TEST(Hypergeometric, KeepsWhatAPoleLeaves) {
    for (const double c : {0x1p-80, -0x1p-100, 0x1p-400, -0x1p-1070}) {
        EXPECT_EQ(Hypergeometric2F1(-1, c, c, 0.5), 0.5) << c;
        EXPECT_EQ(Hypergeometric2F1(-1, -3 * c, c, 0.25), 1.75) << c;
        EXPECT_EQ(Hypergeometric2F1(2 * c, -1, c, 0.75), -0.5) << c;
        // b+1 = 2/x: the terms with 1/c cancel, 1 - b (b+1) x^2 is left
        EXPECT_EQ(Hypergeometric2F1(-2, 3, c, 0.5), -2) << c;
    }
}

// Parameters as large as can be neither hang nor are they refused where the value is plain.
TEST(Hypergeometric, IsAPowerWhereParametersAreTied) {
    const double tied[] = {0.25, -13.5, 7, 1e-30, -1e-200, 1e-310, 5e-324, 1e300};
    const double powers[][3] = {// b, x, (1-x)^-b
                                {-30, 0.5, 0x1p-30}, {20, 0.75, 0x1p40},   {-2, -0.5, 2.25},
                                {-1000, 0.75, 0},    {-0.5, 0.9375, 0.25}, {4, 0.5, 16}};
    for (const double a : tied) {
        for (const auto& [b, x, power] : powers) {
            EXPECT_EQ(Hypergeometric2F1(a, b, a, x), power) << a << ' ' << b << ' ' << x;
            EXPECT_EQ(Hypergeometric2F1(b, a, a, x), power) << a << ' ' << b << ' ' << x;
        }
    }
    EXPECT_EQ(Hypergeometric2F1(-3, 2, -3, 0.5), 1 + 1 + 0.75 + 0.5);  // the polynomial
}

/// With a next to c, both next to 0, 1 - a/c and the power.
TEST(Hypergeometric, RestBesideThePower) {
    for (const double c : {1e-22, -1e-25, 1e-60, -1e-200, 1e-290}) {
        for (const double ratio : {1 + 0x1p-45, 0.5, -3.0, 1 - 0x1p-30, 0x1p10}) {
            const double a = ratio * c;
            const double rest = (c - a) / c;
            EXPECT_DOUBLE_EQ(Hypergeometric2F1(a, -120, c, 0.75), rest) << c << ' ' << ratio;
            EXPECT_DOUBLE_EQ(Hypergeometric2F1(a, -3, c, -1 + 0.5), rest + a / c * 3.375)
                << c << ' ' << ratio;
        }
    }
}

TEST(Hypergeometric, HugeParameters) {
    EXPECT_EQ(Hypergeometric2F1(-0.1, 1e8, -2.1, 1e-100), 1);
    EXPECT_EQ(Hypergeometric2F1(1e-8, -1e20, -1.99999999, -1e-100), 1);
    EXPECT_EQ(Hypergeometric2F1(-2147483647, 1, -1e-20, 1e-100), 1);
    EXPECT_EQ(Hypergeometric2F1(1, 2147483647, -1e-50, 5e-324), 1);
    EXPECT_EQ(Hypergeometric2F1(-1e8, 0.3, -1e-10, 1e-30), 1 + 3e-13);
    EXPECT_EQ(Hypergeometric2F1(0, 1e308, 1e308, 0.5), 1);
    EXPECT_EQ(Hypergeometric2F1(1e308, 1e308, 1, 0), 1);
}

// F(a,b;c;1) by Gauss for c-a-b above 0, growth (1-x)^(c-a-b) below it.
TEST(Hypergeometric, AtTheEnd) {
    const double last = 1 - 0x1p-53;
    EXPECT_NEAR(Hypergeometric2F1(0.5, 0.5, 2.5, last), std::tgamma(2.5) * std::tgamma(1.5), 1e-14);
    EXPECT_NEAR(Hypergeometric2F1(1, 2, 2.5, last) / (0x1p26 * std::sqrt(2)),
                std::tgamma(2.5) * std::tgamma(0.5), 1e-7);
    EXPECT_LE(Ulps(Hypergeometric2F1(1, 1, 2, last), 53 * M_LN2 / last), 2);
}

std::string ErrorOf(const std::function<double()>& call) {
    try {
        return "value " + std::to_string(call());
    } catch (const ap::ap_error& error) {
        return error.msg;
    }
}

TEST(Hypergeometric, Errors) {
    const char overflow[] = "Overflow in Hypergeometric2F1";
    const double last = 1 - 0x1p-53;
    EXPECT_EQ(ErrorOf([] { return Hypergeometric2F1(1, 2, 0, 0.5); }), overflow);
    EXPECT_EQ(ErrorOf([] { return Hypergeometric2F1(1, 2, -3, 0.5); }), overflow);
    EXPECT_EQ(ErrorOf([] { return Hypergeometric2F1(-5, 2, -4, 0.5); }), overflow);
    EXPECT_EQ(ErrorOf([] { return Hypergeometric2F1(-1.5, 2, -4, -0.5); }), overflow);
    EXPECT_EQ(ErrorOf([=] { return Hypergeometric2F1(30, 30, 1, last); }), overflow);
    EXPECT_EQ(ErrorOf([] { return Hypergeometric2F1(kInfinity, 2, 1, 0.5); }), overflow);
    EXPECT_EQ(ErrorOf([] { return Hypergeometric2F1(1, 2, 3, 1); }),
              "Domain error in Hypergeometric2F1");
    EXPECT_TRUE(std::isnan(Hypergeometric2F1(1, 2, 3, std::nan(""))));
}

}  // namespace
}  // namespace kalvex::specfun
