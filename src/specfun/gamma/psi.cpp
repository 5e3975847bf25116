// Digamma function. From 1/2 to 16 polynomials on pieces of an octave; the zero of the function is
// the middle of one piece. Beyond 16 the asymptotic series (DLMF 5.11.2). Between -1 and 1/2 the
// recurrence Psi(x) = Psi(x + 1) - 1/x, applied once or twice (DLMF 5.5.2). Below -1 reflection
// (DLMF 5.5.4), where the distance to the nearest pole or zero of the cotangent is exact. Sums are
// double-doubles and are rounded once.
#include <cmath>
#include <limits>

#include "numbers/double_double.h"
#include "numbers/quick_log_exp.h"
#include "specfun/gamma/psi_pieces.h"
#include "specfun/piecewise.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kAsymptotic = 16;
constexpr double kReflected = -1;
constexpr double kRecurrent = 0.5;
constexpr double kPole = 1e-290;  // for smaller |x| the value is -1/x

/// For x of 16 or more. The first term left out is below 1e-17.
DoubleDouble AsymptoticPsi(DoubleDouble x) {
    const double r = 1 / x.high;
    const double s = r * r;
    const double tail =
        1.0 / 12 -
        s * (1.0 / 120 -
             s * (1.0 / 252 -
                  s * (1.0 / 240 - s * (1.0 / 132 - s * (691.0 / 32760 - s * (1.0 / 12))))));
    return QuickLog(x.high) + (x.low * r - (r / 2 + s * tail));
}

/// For x of 1/2 or more.
DoubleDouble PositivePsi(DoubleDouble x) {
    return x.high < kAsymptotic ? AtPiece(kPsi, x) : AsymptoticPsi(x);
}

/// -1/x
DoubleDouble Pole(double x) {
    const double quotient = -1 / x;
    return {quotient, -std::fma(quotient, x, 1) / x};
}

/// For x from -1 to 1/2.
double PsiNextToZero(double x) {
    if (std::fabs(x) < kPole) return -1 / x;
    if (x >= -kRecurrent) return ToDouble(Pole(x) + PositivePsi(TwoSum(1, x)));
    const double above = 1 + x;  // exact
    const DoubleDouble poles = Pole(x) + Pole(above);
    return ToDouble(poles + PositivePsi(TwoSum(1, above)));
}

/// pi cot(pi x) for x that is not integral.
double PiCotangent(double x) {
    const double rest = x - std::nearbyint(x);
    if (std::fabs(rest) <= 0.25) return kPi.high / std::tan(kPi.high * rest);
    return std::copysign(kPi.high * std::tan(kPi.high * (0.5 - std::fabs(rest))), rest);
}

}  // namespace

KALVEX_WITH_FMA
double Psi(double x) {
    if (std::isnan(x) || x > std::numeric_limits<double>::max()) return x;
    if (x >= kRecurrent) return ToDouble(PositivePsi({x, 0}));
    if (std::floor(x) == x) throw ap::ap_error{"Singularity in Psi(x)"};
    if (x >= kReflected) return PsiNextToZero(x);
    return ToDouble(PositivePsi(TwoSum(1, -x)) - PiCotangent(x));
}

}  // namespace kalvex::specfun
