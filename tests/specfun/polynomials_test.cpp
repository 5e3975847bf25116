// Closed forms and identities of the orthogonal polynomials (DLMF chapter 18), exact where both
// sides are representable.
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

struct Row {
    const char* call;
    double value;
    double expected;
    double bound;  // in units in the last place
};

double Ulps(double value, double expected) {
    if (value == expected) return 0;
    const double unit = std::nextafter(std::fabs(expected), kInfinity) - std::fabs(expected);
    return std::fabs(value - expected) / unit;
}

void ExpectRows(const Row* begin, const Row* end) {
    for (const Row* row = begin; row != end; ++row) {
        EXPECT_LE(Ulps(row->value, row->expected), row->bound)
            << row->call << " = " << row->value << ", expected " << row->expected;
    }
}

TEST(Polynomials, LowDegreesAreExact) {
    const Row rows[] = {
        {"T(0,0.3)", Chebyshev(1, 0, 0.3), 1, 0},
        {"T(1,0.3)", Chebyshev(1, 1, 0.3), 0.3, 0},
        {"T(2,0.75)", Chebyshev(1, 2, 0.75), 0.125, 0},
        {"T(3,0.5)", Chebyshev(1, 3, 0.5), -1, 0},
        {"U(1,0.3)", Chebyshev(2, 1, 0.3), 0.6, 0},
        {"U(2,0.5)", Chebyshev(2, 2, 0.5), 0, 0},
        {"U(3,0.75)", Chebyshev(2, 3, 0.75), 0.375, 0},
        {"H(0,-7)", Hermite(0, -7), 1, 0},
        {"H(1,-7)", Hermite(1, -7), -14, 0},
        {"H(5,1)", Hermite(5, 1), -8, 0},
        {"H(6,0)", Hermite(6, 0), -120, 0},
        {"L(0,5)", Laguerre(0, 5), 1, 0},
        {"L(1,5)", Laguerre(1, 5), -4, 0},
        {"L(2,-2)", Laguerre(2, -2), 7, 0},
        {"L(4,0)", Laguerre(4, 0), 1, 0},
        {"P(1,-0.3)", Legendre(1, -0.3), -0.3, 0},
        {"P(2,0.5)", Legendre(2, 0.5), -0.125, 0},
        {"P(4,0)", Legendre(4, 0), 0.375, 0},
    };
    ExpectRows(std::begin(rows), std::end(rows));
}

TEST(Polynomials, EndsAndMiddle) {
    for (const double n : {1.0, 2.0, 7.0, 50.0, 333.0, 1000.0, 99999.0, 1e15, 0x1p53 - 1}) {
        const double sign = std::fmod(n, 2) == 0 ? 1 : -1;
        EXPECT_EQ(Chebyshev(1, n, 1), 1);
        EXPECT_EQ(Chebyshev(1, n, -1), sign);
        EXPECT_EQ(Chebyshev(2, n, 1), n + 1);
        EXPECT_EQ(Chebyshev(2, n, -1), sign * (n + 1));
        EXPECT_EQ(Legendre(n, 1), 1);
        EXPECT_EQ(Legendre(n, -1), sign);
        EXPECT_EQ(Laguerre(n, 0), 1);
        EXPECT_EQ(Laguerre(n, DBL_TRUE_MIN), 1);
    }
}

// An exact zero has no sign, however the recurrence arrives at it.
TEST(Polynomials, ExactZerosHaveNoSign) {
    const Row rows[] = {
        {"T(1,-0)", Chebyshev(1, 1, -0.0), 0, 0},
        {"T(3,0)", Chebyshev(1, 3, 0), 0, 0},
        {"T(-3,0)", Chebyshev(1, -3, 0), 0, 0},
        {"T(5,-0)", Chebyshev(1, 5, -0.0), 0, 0},
        {"T(99999,0)", Chebyshev(1, 99999, 0), 0, 0},
        {"U(-1,0.3)", Chebyshev(2, -1, 0.3), 0, 0},
        {"U(-1,-0.3)", Chebyshev(2, -1, -0.3), 0, 0},
        {"U(1,-0)", Chebyshev(2, 1, -0.0), 0, 0},
        {"U(3,0)", Chebyshev(2, 3, 0), 0, 0},
        {"U(-5,0)", Chebyshev(2, -5, 0), 0, 0},
        {"U(2,-0.5)", Chebyshev(2, 2, -0.5), 0, 0},
        {"U(5,-0.5)", Chebyshev(2, 5, -0.5), 0, 0},
        {"U(99998,-0.5)", Chebyshev(2, 99998, -0.5), 0, 0},
        {"H(3,0)", Hermite(3, 0), 0, 0},
        {"H(99999,0)", Hermite(99999, 0), 0, 0},
        {"L(1,1)", Laguerre(1, 1), 0, 0},
        {"P(1,-0)", Legendre(1, -0.0), 0, 0},
        {"P(3,-0)", Legendre(3, -0.0), 0, 0},
        {"P(99999,0)", Legendre(99999, 0), 0, 0},
    };
    ExpectRows(std::begin(rows), std::end(rows));
    for (const Row& row : rows)
        EXPECT_FALSE(std::signbit(row.value)) << row.call;
}

// P(n,1-h) = 1 - n(n+1)/2 h (1 - ...), L(n,h) = 1 - n h + n(n-1)/4 h^2. A plain recurrence of high
// degree loses digits here.
TEST(Polynomials, NearTheSpecialPoints) {
    const double h = 0x1p-50;
    for (const double n : {20.0, 100.0, 1000.0}) {
        EXPECT_LE(Ulps(Legendre(n, 1 - h), 1 - n * (n + 1) / 2 * h), 1) << n;
        EXPECT_LE(Ulps(Laguerre(n, h), 1 - n * h), 1) << n;
        EXPECT_LE(Ulps(Chebyshev(1, n, 1 - h), 1 - n * n * h), 1) << n;
    }
}

// Odd polynomials are linear at tiny arguments, denormal ones included.
TEST(Polynomials, OddDegreesAtTinyArguments) {
    for (const double x : {1e-30, -1e-200, 0x1p-1060}) {
        const Row rows[] = {
            {"T(7)", Chebyshev(1, 7, x), -7 * x, 0},
            {"T(9)", Chebyshev(1, 9, x), 9 * x, 0},
            {"U(5)", Chebyshev(2, 5, x), 6 * x, 0},
            {"H(3)", Hermite(3, x), -12 * x, 0},
            {"H(5)", Hermite(5, x), 120 * x, 0},
            {"P(3)", Legendre(3, x), -1.5 * x, 0},
            {"P(5)", Legendre(5, x), 1.875 * x, 1},
            {"H(4)", Hermite(4, x), 12, 0},
            {"P(4)", Legendre(4, x), 0.375, 0},
            {"T(6)", Chebyshev(1, 6, x), -1, 0},
            {"T(2^53-1)", Chebyshev(1, 0x1p53 - 1, x * 0x1p-10), (1 - 0x1p53) * (x * 0x1p-10), 0},
            {"U(2^53-1)", Chebyshev(2, 0x1p53 - 1, x * 0x1p-10), -0x1p43 * x, 0},
        };
        ExpectRows(std::begin(rows), std::end(rows));
    }
}

// T(n)^2 + (1-x^2) U(n-1)^2 = 1 and T(mn) = T(m) of T(n).
TEST(Polynomials, ChebyshevIdentities) {
    for (const double x : {-0.99, -0.5, -1e-5, 0.1, 0.7071, 0.9999999}) {
        for (const double n : {1.0, 2.0, 5.0, 31.0, 64.0, 1000.0, 99998.0}) {
            const double t = Chebyshev(1, n, x);
            const double u = Chebyshev(2, n - 1, x);
            EXPECT_NEAR(t * t + (1 - x) * (1 + x) * u * u, 1, 1e-14) << n << " " << x;
        }
        EXPECT_NEAR(Chebyshev(1, 3, Chebyshev(1, 4, x)), Chebyshev(1, 12, x), 1e-14) << x;
    }
}

// T(n,1/2) = cos(n pi/3), U(n,1/2) = sin((n+1) pi/3) / sin(pi/3); next to 1/2 the values hardly
// differ.
TEST(Polynomials, ChebyshevOfHugeDegrees) {
    constexpr double kFirst[] = {1, 0.5, -0.5, -1, -0.5, 0.5};
    constexpr double kSecond[] = {1, 1, 0, -1, -1, 0};
    for (const double n : {1.0, 100.0, 16385.0, 123456789.0, 1e15, 0x1p53 - 4, 1e17, 1e300}) {
        for (int k = 0; k < 4; ++k) {
            const double m = n + k;
            const auto index = static_cast<std::size_t>(std::fmod(m, 6));
            EXPECT_EQ(Chebyshev(1, m, 0.5), kFirst[index]) << m;
            EXPECT_EQ(Chebyshev(2, m, 0.5), kSecond[index]) << m;
            const double sign = std::fmod(m, 2) == 0 ? 1 : -1;
            EXPECT_EQ(Chebyshev(1, m, -0.5), sign * kFirst[index]) << m;
            EXPECT_EQ(Chebyshev(2, m, -0.5), sign * kSecond[index]) << m;
            if (m < 2 || m > 0x1p53) continue;
            EXPECT_EQ(Chebyshev(2, -m, 0.3), -Chebyshev(2, m - 2, 0.3)) << m;
        }
    }
    const double next = std::nextafter(0.5, 1);  // n 2^-53 / sin(pi/3) away in phase
    EXPECT_NEAR(Chebyshev(1, 600000, next), 1, 1e-16);
    EXPECT_NEAR(Chebyshev(2, 600000, next), 1, 600000 * 0x1p-53);
    EXPECT_EQ(Chebyshev(1, 1e300, 0), 1);
    EXPECT_EQ(Chebyshev(2, 1e300, -1), 1e300);
    EXPECT_EQ(Chebyshev(2, -1e300, 1), -1e300);
}

// The recurrence across the seams between methods, where neighbours in degree or in x come from
// different methods, and across the end of the interval.
TEST(Polynomials, LegendreRecurrenceAtSeams) {
    for (const double n : {58.0, 60.0, 61.0, 1000.0, 100001.0, 1e7}) {
        const double seam = std::cos(25 / (n + 0.5));
        for (const double x : {0.0, 1e-300, 1e-9, 0.3, 0.6999, 0.7001, seam, seam + 1e-4 / n / n,
                               2 - seam, 2 - seam + 1e-4 / n / n, 1 + 0.1 / n / n}) {
            const double before = Legendre(n - 1, x);
            const double now = Legendre(n, x);
            const double next = Legendre(n + 1, x);
            const double scale = 4e-16 * (std::fabs(before) + 2 * std::fabs(now));
            const double ratio = n / (n + 1);
            EXPECT_NEAR(next, (1 + ratio) * x * now - ratio * before, scale) << n << " " << x;
            EXPECT_EQ(Legendre(n, -x), std::fmod(n, 2) == 0 ? now : -now) << n << " " << x;
        }
    }
}

// H(2m,x) = (-4)^m m! L^(-1/2)(m,x^2) leads to H(2,x) = -2 + 4 x^2. The terms leave the range
// of doubles although the value does not.
TEST(Polynomials, ValuesNearTheEndOfTheRange) {
    EXPECT_TRUE(std::isfinite(Hermite(260, 0.25)));
    EXPECT_TRUE(std::isfinite(Hermite(275, 1e-30)));  // 1e-30 times a slope beyond 1e308
    EXPECT_GT(std::fabs(Hermite(275, 1e-30)), 1e280);
    EXPECT_NEAR(Laguerre(2, 1e150) / 5e299, 1, 1e-15);
    EXPECT_EQ(Hermite(1, 8e307), 1.6e308);
}

std::string ErrorOf(const std::function<double()>& call) {
    try {
        return "value " + std::to_string(call());
    } catch (const ap::ap_error& error) {
        return error.msg;
    }
}

TEST(Polynomials, Errors) {
    const struct {
        std::function<double()> call;
        const char* message;
    } rows[] = {
        {[] { return Chebyshev(3, 1, 0); }, "Domain error in Chebyshev"},
        {[] { return Chebyshev(1, 1.5, 0); }, "Domain error in Chebyshev"},
        {[] { return Chebyshev(2, 1e300, 0.3); }, "Chebyshev: the degree is too large"},
        {[] { return Chebyshev(1, 1000, 1e5); }, "Overflow in Chebyshev"},
        {[] { return Chebyshev(2, 1e15, -2); }, "Overflow in Chebyshev"},
        {[] { return Chebyshev(1, 1e300, kInfinity); }, "Overflow in Chebyshev"},
        {[] { return Hermite(-1, 0); }, "Domain error in Hermite"},
        {[] { return Hermite(1e5, 3); }, "Overflow in Hermite"},
        {[] { return Hermite(300, 0); }, "Overflow in Hermite"},
        {[] { return Hermite(1, kInfinity); }, "Overflow in Hermite"},
        {[] { return Laguerre(0.5, 0); }, "Domain error in Laguerre"},
        {[] { return Laguerre(1000, 1e5); }, "Overflow in Laguerre"},
        {[] { return Laguerre(2, -kInfinity); }, "Overflow in Laguerre"},
        {[] { return Legendre(1e300, 0.5); }, "Legendre: the degree is too large"},
        {[] { return Legendre(1000, 10); }, "Overflow in Legendre"},
        {[] { return Legendre(1e15, kInfinity); }, "Overflow in Legendre"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ErrorOf(row.call), row.message);
}

}  // namespace
}  // namespace kalvex::specfun
