// The elementary functions of extended.h against the more accurate ones of double_double.h, and by
// identities.
#include "numbers/extended.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kalvex {
namespace {

double Distance(DoubleDouble a, DoubleDouble b) {
    return std::fabs((a - b).high);
}

TEST(Extended, Arithmetic) {
    for (double x = 1e-9; x < 1e9; x *= 1.37) {
        const DoubleDouble a{x, x * 0x1p-55};
        const DoubleDouble b = LooseSqrt(a);
        EXPECT_LE(Distance(b * b, a), 0x1p-98 * x) << x;
        const DoubleDouble c = a / b;
        EXPECT_LE(Distance(c, b), 0x1p-98 * b.high) << x;
        EXPECT_LE(Distance((a + c) - c, a), 0x1p-98 * (a.high + c.high)) << x;
    }
}

TEST(Extended, Logarithm) {
    for (double x = 1e-305; x < 1e308; x *= 1.37) {
        const DoubleDouble a{x, x * 0x1p-54};
        const DoubleDouble expected = Log(a);
        EXPECT_LE(Distance(LogOf(a), expected), 0x1p-62) << x;
    }
    EXPECT_LE(Distance(LogOf({0x1p-1074, 0}), kLn2 * -1074.0), 0x1p-62);
    // On both sides of the ends of the intervals of the table.
    for (int i = 64; i <= 128; ++i) {
        for (const double x : {i / 64.0, std::nextafter(i / 64.0, 0.0)})
            EXPECT_LE(Distance(LogOf({x, 0}), Log({x, 0})), 0x1p-62) << x;
    }
}

TEST(Extended, Exponential) {
    for (double t = -10990; t < 10990; t += 3.7319) {
        const DoubleDouble at{t, t * 0x1p-55};
        int exponent = 0;
        const DoubleDouble expected = ExpScaled(at, exponent);
        const Scaled value = ExpOf(at);
        const DoubleDouble same =
            TimesPower(value.value, std::ldexp(1.0, value.exponent - exponent));
        EXPECT_LE(Distance(same, expected), 0x1p-61 * expected.high) << t;
    }
    EXPECT_EQ(ToDouble(ExpOf({0, 0})), 1);
    EXPECT_EQ(ToDouble(ExpOf({-1e300, 0})), 0);
    EXPECT_EQ(ToDouble(ExpOf({1e300, 0})), std::numeric_limits<double>::infinity());
}

TEST(Extended, ExponentialLessOne) {
    for (double t = 0.5; t > 1e-30; t *= 0.973) {
        for (const double at : {t, -t}) {
            const DoubleDouble expected = ExpMinusOne({at, 0});
            EXPECT_LE(Distance(ExpMinusOneOf({at, 0}), expected), 0x1p-58 * std::fabs(at)) << at;
        }
    }
    EXPECT_EQ(ExpMinusOneOf({0, 0}).high, 0);
}

// Doubling an argument is exact, so that the duplication formulas test its reduction at every size.
TEST(Extended, SineAndCosineOfTheDouble) {
    for (const double start : {1.0, 1.3, 1.7, 6381956970095103 * 0x1p-52}) {
        for (double x = start * 0x1p-40; x < 0x1p1020; x *= 2) {
            for (const double low : {0.0, x * 0x1p-54}) {
                const auto [c, s] = CosineSineOf({x, low});
                const auto [twiceC, twiceS] = CosineSineOf({2 * x, 2 * low});
                EXPECT_LE(Distance(c * c + s * s, {1, 0}), 0x1p-60) << x;
                EXPECT_LE(Distance(c * c - s * s, twiceC), 0x1p-60) << x;
                EXPECT_LE(Distance(2 * (c * s), twiceS), 0x1p-60) << x;
                const auto [back, minus] = CosineSineOf({-x, -low});
                EXPECT_EQ(back.high, c.high);
                EXPECT_EQ(minus.high, -s.high);
            }
        }
    }
}

TEST(Extended, SineAndCosine) {
    for (double x = -70; x < 70; x += 0.0317) {
        const auto [c, s] = CosineSineOf({x, 0});
        EXPECT_NEAR(ToDouble(c), std::cos(x), 0x1p-52) << x;
        EXPECT_NEAR(ToDouble(s), std::sin(x), 0x1p-52) << x;
    }
    // The double next to a multiple of a quarter turn, 2^-60.9 from it.
    EXPECT_DOUBLE_EQ(ToDouble(CosineSineOf({6381956970095103 * 0x1p797, 0}).cosine),
                     -4.68716592425462761112e-19);
    for (double t = -1.5; t < 1.5; t += 0.0317) {
        const auto [c, s] = CosineSinePi({t, 0});
        const auto [cosine, sine] = CosineSineOf(kPi * t);
        EXPECT_LE(Distance(c, cosine), 0x1p-61) << t;
        EXPECT_LE(Distance(s, sine), 0x1p-61) << t;
    }
    EXPECT_EQ(CosineSinePi({1.5, 0}).cosine.high, 0);
    EXPECT_EQ(CosineSinePi({1000000, 0}).sine.high, 0);
}

TEST(Extended, Angle) {
    for (double t = 1.1; t > 1e-30; t *= 0.973) {
        const auto [c, s] = CosineSineOf({t, 0});
        EXPECT_LE(Distance(AngleOf(s, c), {t, 0}), 0x1p-59 * t) << t;
    }
    EXPECT_EQ(AngleOf({0, 0}, {1, 0}).high, 0);
}

TEST(Extended, NumbersWithAPower) {
    const Scaled large{{0.75, 0}, 3000};
    const Scaled small{{0.5, 0}, -3000};
    EXPECT_EQ(ToDouble(large), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ToDouble(small), 0);
    EXPECT_EQ(Sum(large, small).exponent, 3000);
    EXPECT_EQ(ToDouble(Sum({{1, 0}, 4}, {{-3, 0}, 1})), 10);
    EXPECT_EQ(ToDouble(Sum({{-3, 0}, 1}, {{1, 0}, 4})), 10);
    EXPECT_EQ(ToDouble(Sum({{0, 0}, 3000}, {{1, 0}, 4})), 16);
}

}  // namespace
}  // namespace kalvex
