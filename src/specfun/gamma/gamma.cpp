// Gamma function. Polynomials on quarters of the stretch from 1 to 2, from there to 10 and to 0 by
// Gamma(x+1) = x Gamma(x) with exact factors; beyond Stirling's series (DLMF 5.11.1); below 0 by
// Gamma(x) Gamma(-x) = -pi/(x sin(pi x)) (DLMF 5.5.3), the distance to the nearest pole taken
// exactly. The sine is a polynomial too. All in pairs of doubles with the
// power of two apart, rounded once.
#include <cmath>
#include <limits>

#include "numbers/double_double.h"
#include "numbers/quick_log_exp.h"
#include "specfun/gamma/gamma_pieces.h"
#include "specfun/gamma/stirling.h"
#include "specfun/piecewise.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kOverflow = 171.7;
constexpr double kVanishing = -200;  // below it every value is less than the least double
constexpr double kInverse = 1e-20;   // nearer to 0 it is 1/x

bool IsPole(double x) {
    return x <= 0 && std::floor(x) == x;
}

/// value 2^exponent
struct Scaled {
    DoubleDouble value;
    int exponent = 0;
};

/// x from 10 to 200.
Scaled ByStirling(double x) {
    DoubleDouble logarithm = Multiply(QuickLog(x), x - 0.5);  // exact: x has bits to spare
    logarithm = Add(Subtract(logarithm, x), kHalfLnTwoPi);
    Scaled result;
    result.value = QuickExp(Add(logarithm, StirlingCorrection(x)), result.exponent);
    return result;
}

/// x from 1 to 10.
DoubleDouble FromOneToTen(double x) {
    const double steps = std::floor(x) - 1;
    DoubleDouble result = AtPiece(kGamma, {x - steps, 0});
    for (double k = 1; k <= steps; ++k)
        result = Multiply(result, x - k);
    return result;
}

/// x from 1e-20 to 200.
Scaled PositiveGamma(double x) {
    if (x >= kLeastForStirling) return ByStirling(x);
    if (x >= 1) return {FromOneToTen(x)};
    const DoubleDouble above = TwoSum(1, x);
    if (above.high == 2) return {{1, 0}};
    return {Divide(AtPiece(kGamma, above), x)};
}

/// sin(pi x) for x from 0 to 1/2.
DoubleDouble SineOfPart(double x) {
    if (x == 0.5) return {1, 0};
    if (x >= 0.0625) return AtPiece(kSineOfTurns, {x, 0});
    const DoubleDouble angle = Multiply(kPi, x);
    const double square = angle.high * angle.high;
    const double tail = 1.0 / 362880 - square * (1.0 / 39916800 - square / 6227020800);
    const double rest = 1.0 / 6 - square * (1.0 / 120 - square * (1.0 / 5040 - square * tail));
    return Add(angle, -angle.high * (square * rest));
}

/// sin(pi x), x not integral.
DoubleDouble SineOfTurns(double x) {
    const double whole = std::nearbyint(x);
    const DoubleDouble sine = SineOfPart(std::fabs(x - whole));
    const bool negative = (x < whole) != (std::fmod(whole, 2.0) != 0);
    return negative ? Negate(sine) : sine;
}

}  // namespace

KALVEX_WITH_FMA
double Gamma(double x) {
    if (std::isnan(x)) return x;
    if (x > kOverflow) return kInfinity;
    if (IsPole(x)) return std::copysign(kInfinity, x);
    if (std::fabs(x) < kInverse) return 1 / x;
    if (x < kVanishing) return std::fmod(std::floor(x), 2.0) != 0 ? -0.0 : 0.0;
    const Scaled positive = PositiveGamma(std::fabs(x));
    if (x > 0) return std::ldexp(ToDouble(positive.value), positive.exponent);
    const DoubleDouble product = Multiply(Multiply(positive.value, SineOfTurns(x)), -x);
    return std::ldexp(ToDouble(Divide(kPi, product)), -positive.exponent);
}

}  // namespace kalvex::specfun
