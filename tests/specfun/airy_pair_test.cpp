// The Airy functions and their derivatives, tested by their Wronskian and against the functions
// with double results, on both sides of every seam.
#include "specfun/airy/airy_pair.h"

#include <gtest/gtest.h>

#include <cmath>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

// Ai Bi' - Ai' Bi = 1/pi (DLMF 9.2.7), where Bi has 64 bits and Ai' 53.
TEST(AiryPair, Wronskian) {
    for (double y = -13; y <= 13; y += 0.00977) {
        const AiryPair a = AiryAiPair({y, y * 0x1p-55});
        const AiryPair b = AiryBiPair({y, y * 0x1p-55});
        const DoubleDouble difference = a.value * b.derivative - b.value * a.derivative;
        EXPECT_NEAR(ToDouble(difference * kPi), 1, 0x1p-49) << y;
    }
}

TEST(AiryPair, AgreesWithTheFunctions) {
    for (double y = -13; y <= 13; y += 0.0731) {
        const double ai = AiryAi(y);
        const double bi = AiryBi(y);
        const double modulus = y < 0 ? std::hypot(ai, bi) : 0;
        EXPECT_NEAR(AiryAiPair({y, 0}).value.high, ai, 1e-14 * (modulus + std::fabs(ai))) << y;
        EXPECT_NEAR(AiryBiPair({y, 0}).value.high, bi, 1e-14 * (modulus + std::fabs(bi))) << y;
    }
}

// Both sides of the middles between the table's entries.
TEST(AiryPair, SeamsMeet) {
    for (int eighths = -103; eighths <= 103; eighths += 2) {
        constexpr double kStep = 0x1p-58;
        for (const auto f : {AiryAiPair, AiryBiPair}) {
            const AiryPair below = f(DoubleDouble{eighths / 8.0} - kStep);
            const AiryPair above = f(DoubleDouble{eighths / 8.0} + kStep);
            const double size = std::fabs(below.value.high) + std::fabs(below.derivative);
            const DoubleDouble rise = above.value - below.value;
            EXPECT_NEAR((rise.high - 2 * kStep * below.derivative) / size, 0, 0x1p-60) << eighths;
            EXPECT_NEAR((above.derivative - below.derivative) / size, 0, 0x1p-50) << eighths;
        }
    }
}

}  // namespace
}  // namespace kalvex::specfun
