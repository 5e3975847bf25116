// Sine and cosine integral. From 4 on they come from the auxiliary functions f and g (DLMF 6.2.17
// to 6.2.20)
//
//    Ci(x) = f(x) sin x - g(x) cos x,   Si(x) = pi/2 - f(x) cos x - g(x) sin x,
//
// which are polynomials on pieces of an octave up to 64 and asymptotic series (DLMF 6.12.3, 6.12.4)
// beyond. Between 1/2 and 4 Si and Ci themselves are polynomials on pieces; the zeros of Ci are
// middles of pieces. Below 1/2 they are power series (DLMF 6.6.5, 6.6.6), Ci with the logarithm.
// All sums are double-doubles and are rounded once.
#include <cmath>
#include <limits>

#include "numbers/double_double.h"
#include "specfun/integrals/integral_series.h"
#include "specfun/integrals/trigonometric_pieces.h"
#include "specfun/integrals/turning.h"
#include "specfun/piecewise.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kNearZero = 0.5;
constexpr double kFar = 4;
constexpr double kAsymptotic = 64;
constexpr double kVast = 1e20;    // beyond it f is 1/x and g does not change a digit
constexpr double kLinear = 1e-8;  // below it x is sin x

struct Auxiliary {
    DoubleDouble f;
    double g = 0;
};

/// For x of 64 or more. After ten terms the next one of f is 20!/64^20, below 2e-18; after nine
/// that of g is 1e-16.
Auxiliary AsymptoticAuxiliary(double x) {
    constexpr double kFactorials[] = {2,
                                      6,
                                      24,
                                      120,
                                      720,
                                      5040,
                                      40320,
                                      362880,
                                      3628800,
                                      39916800,
                                      479001600,
                                      6227020800,
                                      87178291200,
                                      1307674368000,
                                      20922789888000,
                                      355687428096000,
                                      6402373705728000,
                                      121645100408832000};
    const DoubleDouble inverse = Inverse({x, 0});
    const double square = -inverse.high * inverse.high;
    double f = 0;
    double g = 0;
    for (int k = 16; k >= 0; k -= 2) {
        f = square * (kFactorials[k] + f);
        g = square * (kFactorials[k + 1] + g);
    }
    return {inverse + f * inverse.high, -(1 + g) * square};
}

/// For x of 4 or more.
Auxiliary AuxiliaryAt(double x) {
    if (x > kVast) return {{1 / x, 0}, 0};
    if (x >= kAsymptotic) return AsymptoticAuxiliary(x);
    return {AtPiece(kTrigF, {x, 0}), AtPiece(kTrigG, {x, 0}).high};
}

double PositiveSi(double x) {
    if (x < kLinear) return x;
    if (x < kNearZero) return x + x * SineIntegralSeries(-x * x);
    if (x < kFar) return ToDouble(AtPiece(kSiNear, {x, 0}));
    if (x > kVast) return kHalfPi.high;
    const auto [f, g] = AuxiliaryAt(x);
    const DoubleDouble main = f * -std::cos(x);
    return ToDouble(kHalfPi + (main - g * std::sin(x)));
}

}  // namespace

KALVEX_WITH_FMA
double Si(double x) {
    if (std::isnan(x)) return x;
    return std::copysign(PositiveSi(std::fabs(x)), x);
}

KALVEX_WITH_FMA
double Ci(double x) {
    if (std::isnan(x)) return x;
    x = std::fabs(x);
    if (x == 0) return -std::numeric_limits<double>::infinity();
    if (std::isinf(x)) return 0;
    if (x < kNearZero) return CosineIntegralNearZero(x, -x * x);
    if (x < kFar) return ToDouble(AtPiece(kCiNear, {x, 0}));
    const auto [f, g] = AuxiliaryAt(x);
    const double sine = std::sin(x);
    const double cosine = std::cos(x);
    return ToDouble(f * LargerOfTwo(sine, cosine) - g * cosine);
}

}  // namespace kalvex::specfun
