// Fresnel integrals. From 3/2 on they come from the auxiliary functions f and g (DLMF 7.5.3, 7.5.4)
//
//    S(x) = 1/2 - f cos(pi/2 x^2) - g sin(pi/2 x^2),
//    C(x) = 1/2 + f sin(pi/2 x^2) - g cos(pi/2 x^2),
//
// which are polynomials on pieces of an octave up to 8 and asymptotic series (DLMF 7.12.2, 7.12.3)
// beyond. The square is the exact sum of two doubles; whole turns are subtracted from it before
// anything is rounded. Between 1/2 and 3/2 S and C themselves are polynomials on pieces, below 1/2
// they are power series (DLMF 7.6.4, 7.6.6). Sums are double-doubles and are rounded once.
#include <cmath>

#include "numbers/double_double.h"
#include "numbers/truncate.h"
#include "specfun/integrals/fresnel_pieces.h"
#include "specfun/integrals/turning.h"
#include "specfun/piecewise.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kNearZero = 0.5;
constexpr double kFar = 1.5;
constexpr double kAsymptotic = 8;
constexpr double kHalf = 1e17;  // beyond it f is less than half a unit in the last place of 1/2

/// Sine and cosine of pi/2 x^2.
SinCosPair OfQuarterTurns(double x) {
    constexpr double kWhole = 0x1p52;  // from here on the high part of the square is an integer
    DoubleDouble square = TwoProduct(x, x);
    if (square.high >= kWhole) square = {std::fmod(square.high, 4.0), std::fmod(square.low, 4.0)};
    const double quarters = std::nearbyint(square.high + square.low);
    const DoubleDouble angle = kHalfPi * QuickTwoSum(square.high - quarters, square.low);
    const double sine = std::sin(angle.high);
    const double cosine = std::cos(angle.high);
    const double s = sine + angle.low * cosine;
    const double c = cosine - angle.low * sine;
    const auto quadrant = TruncateToInt64(quarters) & 3;
    if (quadrant == 0) return {s, c};
    if (quadrant == 1) return {c, -s};
    if (quadrant == 2) return {-s, -c};
    return {-c, s};
}

struct Auxiliary {
    DoubleDouble f;
    double g = 0;
};

/// For x of 8 or more, in terms of q = 1/(pi x^2). The coefficients are 1 3 5 ... (2k-1); after
/// sixteen terms the next one is below 1e-19.
Auxiliary AsymptoticAuxiliary(double x) {
    constexpr double kF[] = {3, 105, 10395, 2027025, 654729075, 316234143225, 213458046676875};
    constexpr double kG[] = {15,          945,           135135,          34459425,
                             13749310575, 7905853580625, 6190283353629375};
    const DoubleDouble inverse = Inverse(kPi * x);
    const double q = kPi.high * inverse.high * inverse.high;
    const double square = -q * q;
    double f = 0;
    double g = 0;
    for (int k = 6; k >= 0; --k) {
        f = square * (kF[k] + f);
        g = square * (kG[k] + g);
    }
    return {inverse + f * inverse.high, (1 + g) * q * inverse.high};
}

struct Parts {
    Auxiliary auxiliary;
    SinCosPair turn;
};

/// For x of 3/2 or more.
Parts PartsAt(double x) {
    const SinCosPair turn = OfQuarterTurns(x);
    if (x >= kAsymptotic) return {AsymptoticAuxiliary(x), turn};
    return {{AtPiece(kFresnelF, {x, 0}), AtPiece(kFresnelG, {x, 0}).high}, turn};
}

/// S(x) for x up to 1/2: x times the sum of (-1)^k u^(2k+1)/((2k+1)! (4k+3)), u = pi/2 x^2.
double SmallS(double x) {
    constexpr DoubleDouble kSixthOfPi = {0.52359877559829893, -5.3604088322554549e-17};
    const DoubleDouble cubic = kSixthOfPi * TwoProduct(x, x) * x;
    const double u = kHalfPi.high * x * x;
    const double s = u * u;
    const double tail = 1.0 / 306028800 - s / 56043187200;
    const double rest =
        1.0 / 14 - s * (1.0 / 440 - s * (1.0 / 25200 - s * (1.0 / 2298240 - s * tail)));
    return cubic.high + (cubic.low - cubic.high * (s * rest));
}

/// C(x) for x up to 1/2: x times the sum of (-1)^k u^(2k)/((2k)! (4k+1)), u = pi/2 x^2.
double SmallC(double x) {
    const double u = kHalfPi.high * x * x;
    const double s = u * u;
    const double tail = 1.0 / 76204800 - s / 11975040000;
    const double rest =
        1.0 / 10 - s * (1.0 / 216 - s * (1.0 / 9360 - s * (1.0 / 685440 - s * tail)));
    return x - x * (s * rest);
}

double PositiveS(double x) {
    if (x < kNearZero) return SmallS(x);
    if (x < kFar) return ToDouble(AtPiece(kFresnelSNear, {x, 0}));
    if (x > kHalf) return 0.5;
    const auto [auxiliary, turn] = PartsAt(x);
    const DoubleDouble main = auxiliary.f * LargerOfTwo(turn.cosine, turn.sine);
    return ToDouble(DoubleDouble{0.5, 0} - (main + auxiliary.g * turn.sine));
}

double PositiveC(double x) {
    if (x < kNearZero) return SmallC(x);
    if (x < kFar) return ToDouble(AtPiece(kFresnelCNear, {x, 0}));
    if (x > kHalf) return 0.5;
    const auto [auxiliary, turn] = PartsAt(x);
    const DoubleDouble main = auxiliary.f * LargerOfTwo(turn.sine, turn.cosine);
    return ToDouble(main - auxiliary.g * turn.cosine + 0.5);
}

}  // namespace

KALVEX_WITH_FMA
double FresnelS(double x) {
    if (std::isnan(x)) return x;
    return std::copysign(PositiveS(std::fabs(x)), x);
}

KALVEX_WITH_FMA
double FresnelC(double x) {
    if (std::isnan(x)) return x;
    return std::copysign(PositiveC(std::fabs(x)), x);
}

}  // namespace kalvex::specfun
