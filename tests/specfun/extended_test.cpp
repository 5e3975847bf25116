// The elementary functions of the extended format against those of the runtime, which are good to
// its last place but slower.
#include "specfun/precision/extended.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace kalvex::specfun {
namespace {

TEST(Extended, Logarithm) {
    for (double x = 1e-320; x < 1e308; x *= 1.37) {
        const Extended expected = std::log(Extended{x} / 2);
        const Extended bound = 0x1p-62L + 0x1p-63L * std::fabs(expected);
        EXPECT_LE(std::fabs(LogOfHalf(x) - expected), bound) << x;
    }
    // Both sides of the ends of the table's intervals.
    for (int i = 64; i <= 128; ++i) {
        for (const double x : {i / 64.0, std::nextafter(i / 64.0, 0.0)})
            EXPECT_LE(std::fabs(LogOfHalf(x) - std::log(Extended{x} / 2)), 0x1p-62L) << x;
    }
}

TEST(Extended, Exponential) {
    for (Extended t = -10990; t < 10990; t += 3.7319L) {
        const Extended expected = std::exp(t);
        EXPECT_LE(std::fabs(ExpOf(t) - expected), 0x1p-61L * expected) << t;
    }
    EXPECT_EQ(ExpOf(0), 1);
    EXPECT_EQ(ExpOf(-1e300L), 0);
    EXPECT_EQ(ExpOf(1e300L), std::numeric_limits<Extended>::infinity());
}

TEST(Extended, ExponentialLessOne) {
    for (Extended t = 0.5L; t > 1e-30L; t *= 0.973L) {
        for (const Extended at : {t, -t}) {
            const Extended expected = std::expm1(at);
            EXPECT_LE(std::fabs(ExpMinusOneOf(at) - expected), 0x1p-58L * std::fabs(expected))
                << at;
        }
    }
    EXPECT_EQ(ExpMinusOneOf(0), 0);
}

TEST(Extended, SineAndCosine) {
    for (Extended x = -70; x < 70; x += 0.0317L) {
        const auto [c, s] = CosineSineOf(x);
        EXPECT_LE(std::fabs(c - std::cos(x)), 0x1p-62L) << x;
        EXPECT_LE(std::fabs(s - std::sin(x)), 0x1p-62L) << x;
    }
    for (Extended t = -1.5L; t < 1.5L; t += 0.0317L) {
        const Extended angle = std::numbers::pi_v<Extended> * t;
        const auto [c, s] = CosineSinePi(t);
        EXPECT_LE(std::fabs(c - std::cos(angle)), 0x1p-61L) << t;
        EXPECT_LE(std::fabs(s - std::sin(angle)), 0x1p-61L) << t;
    }
    EXPECT_EQ(CosineSinePi(1.5L).cosine, 0);
    EXPECT_EQ(CosineSinePi(1000000).sine, 0);
}

}  // namespace
}  // namespace kalvex::specfun
