// The Airy functions in the extended format against their Wronskian, their equation and published
// values, on both sides of every seam.
#include "specfun/airy/airy_pair.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

// Ai Bi' - Ai' Bi = 1/pi (DLMF 9.2.7).
TEST(AiryPair, Wronskian) {
    for (Extended y = -140; y < 140; y += 0.0977L) {
        const AiryPair a = AiryAiPair(y);
        const AiryPair b = AiryBiPair(y);
        const Extended first = a.value * b.derivative;
        const Extended second = a.derivative * b.value;
        EXPECT_NEAR(static_cast<double>((first - second) * kPi - 1), 0, 0x1p-57)
            << static_cast<double>(y);
    }
}

TEST(AiryPair, AgreesWithTheFunctions) {
    for (double y = -60; y < 60; y += 0.731) {
        const double ai = AiryAi(y);
        const double bi = AiryBi(y);
        const double modulus = y < 0 ? std::hypot(ai, bi) : 0;
        EXPECT_NEAR(static_cast<double>(AiryAiPair(y).value), ai, 1e-13 * (modulus + std::fabs(ai)))
            << y;
        EXPECT_NEAR(static_cast<double>(AiryBiPair(y).value), bi, 1e-13 * (modulus + std::fabs(bi)))
            << y;
    }
}

// Both sides of the middles between the table's entries and of its ends.
TEST(AiryPair, SeamsMeet) {
    for (int twice = -25; twice <= 25; ++twice) {
        const bool inner = twice % 2 != 0 && std::abs(twice) < 24;
        if (!inner && std::abs(twice) != 24) continue;
        const Extended y = Extended{0.5} * twice;
        constexpr Extended kStep = 0x1p-58L;
        for (const auto f : {AiryAiPair, AiryBiPair}) {
            const AiryPair below = f(y - kStep);
            const AiryPair above = f(y + kStep);
            // The modulus of the value and the slope that a step brings.
            const Extended size = std::fabs(below.value) + std::fabs(below.derivative);
            EXPECT_NEAR(static_cast<double>((above.value - below.value) / size), 0, 0x1p-55);
            EXPECT_NEAR(static_cast<double>((above.derivative - below.derivative) / size), 0,
                        0x1p-52);
        }
    }
}

}  // namespace
}  // namespace kalvex::specfun
