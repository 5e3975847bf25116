// The Airy functions where their phase is reduced with many digits.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "numbers/double_double.h"
#include "specfun/airy/turns.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The sine of the angle.
double SineOf(const ReducedAngle& angle) {
    const double t = ToDouble(angle.rest);
    const double size = angle.quadrant % 2 == 0 ? std::sin(t) : std::cos(t);
    return angle.quadrant < 2 ? size : -size;
}

// For x = (3 m 2^k)^2 the phase is 18 m^3 8^k + pi/4. Its first term is a double, whose sine and
// cosine the runtime knows to the last place.
TEST(TurnedPhase, SquaresOfWholeNumbers) {
    for (const double m : {1.0, 7.0, 101.0, 1023.0, 54321.0, 65535.0}) {
        const double whole = 18 * m * m * m;
        for (int k = 0; std::ilogb(whole) + 3 * k < 1024; ++k) {
            const double root = std::ldexp(3 * m, k);
            const ReducedAngle angle = TurnedPhase(root * root);
            const double zeta = std::ldexp(whole, 3 * k);
            const double expected = (std::sin(zeta) + std::cos(zeta)) / std::numbers::sqrt2;
            EXPECT_NEAR(SineOf(angle), expected, 4e-16) << m << " 2^" << k;
            EXPECT_LE(std::fabs(angle.rest.high), 0.7854) << m << " 2^" << k;
        }
    }
}

TEST(TurnedPhase, AgreesWithDoubleDoubles) {
    for (double x = 1; x < 1e8; x *= 1.0371) {
        const DoubleDouble zeta = Sqrt({x, 0}) * x * 2 / 3;
        ReducedAngle expected;
        expected.rest =
            ReduceByHalfPi(zeta + DoubleDouble{kPi.high / 4, kPi.low / 4}, expected.quadrant);
        const ReducedAngle angle = TurnedPhase(x);
        const DoubleDouble difference = angle.rest - expected.rest;
        EXPECT_EQ(angle.quadrant, expected.quadrant) << x;
        EXPECT_NEAR(ToDouble(difference), 0, 1e-29 * (1 + zeta.high)) << x;
    }
}

// pi sqrt(|x|) (Ai^2 + Bi^2) = 1 - 5/(32 |x|^3) + ... (DLMF 9.8.20).
TEST(Airy, ModulusForHugeArguments) {
    for (double x = 1e6; x < kLargest / 2; x *= 1.9371e3) {
        const double ai = AiryAi(-x) * std::sqrt(std::sqrt(x));
        const double bi = AiryBi(-x) * std::sqrt(std::sqrt(x));
        EXPECT_NEAR(std::numbers::pi * (ai * ai + bi * bi), 1, 2e-15) << -x;
    }
}

TEST(Airy, EndsOfTheRange) {
    const struct {
        const char* call;
        double value;
        double exact;
    } rows[] = {
        {"Ai(-largest)", AiryAi(-kLargest), 3.035350013132302e-78},
        {"Ai(-1e300)", AiryAi(-1e300), -5.332398852824959e-76},
        {"Ai(-1e200)", AiryAi(-1e200), 5.555442174795448e-51},
        {"Ai(-1.3e10)", AiryAi(-1.3e10), 0.0016397024731265506},
        {"Ai(-1e10)", AiryAi(-1e10), 0.00017362064481528185},
        {"Bi(-largest)", AiryBi(-kLargest), -3.8114677212932573e-78},
        {"Bi(-1e300)", AiryBi(-1e300), -1.8429625858302522e-76},
        {"Bi(-1e200)", AiryBi(-1e200), -9.838957571222123e-52},
        {"Bi(-1.3e10)", AiryBi(-1.3e10), 0.00032115133916066346},
        {"Bi(-1e10)", AiryBi(-1e10), 0.0017756561416929328},
        {"Ai(107.5)", AiryAi(107.5), 0},
        {"Ai(107.46)", AiryAi(107.46), std::numeric_limits<double>::denorm_min()},
        {"Bi(104.4362038448095)", AiryBi(104.4362038448095), 1.7976931348613194e+308},
        {"Bi(104.4362038448097)", AiryBi(104.4362038448097), kInfinity},
        {"Ai(110)", AiryAi(110), 0},
        {"Bi(110)", AiryBi(110), kInfinity},
        {"Ai(500)", AiryAi(500), 0},
        {"Bi(500)", AiryBi(500), kInfinity},
        {"Ai(largest)", AiryAi(kLargest), 0},
        {"Bi(largest)", AiryBi(kLargest), kInfinity},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(row.value, row.exact) << row.call;
}

}  // namespace
}  // namespace kalvex::specfun
