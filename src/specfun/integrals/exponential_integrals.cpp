// Exponential, logarithmic and hyperbolic integrals. Near 0 the logarithm, Euler's constant and the
// power series (DLMF 6.6.2, 6.6.5, 6.6.6) are added as double-doubles. From there to 4 the
// functions are polynomials on pieces of an octave; beyond 4 polynomials give the functions times
// exp(-x). A zero of a function is the middle of a piece. Shi and Chi differ from Ei/2 by a term of
// the size exp(-x), which is exp(-2x) relative to them. The logarithmic integral is Ei(ln x), with
// the logarithm as a double-double; x takes the place of exp(ln x). Every value is rounded once.
#include <cmath>
#include <limits>

#include "numbers/quick_log_exp.h"
#include "specfun/integrals/exponential_pieces.h"
#include "specfun/integrals/hyperbolic_pieces.h"
#include "specfun/integrals/integral_series.h"
#include "specfun/piecewise.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kEiLogarithmic = 0.25;
constexpr double kFar = 4;
constexpr double kHalfOfEi = 32;   // from here on exp(-2x) is below half a unit in the last place
constexpr double kOverflow = 720;  // beyond it Ei and half of it are infinite
constexpr double kNearZero = 0.5;
constexpr double kLinear = 1e-8;  // below it x is sinh x

/// exp(x) times a double-double. The power of two is multiplied last, because exp(x) alone may
/// overflow.
double TimesExp(DoubleDouble factor, double x) {
    int exponent = 0;
    const DoubleDouble power = QuickExp({x, 0}, exponent);
    const double value = ToDouble(power * factor);
    return std::ldexp(value, exponent);
}

/// Ei(x) - ln x for a double-double x from 0 to 1/4: Euler's constant and the sum of x^k/(k k!).
DoubleDouble EiWithoutLogarithm(DoubleDouble x) {
    constexpr double kTerms[] = {4, 18, 96, 600, 4320, 35280, 322560, 3265920, 36288000, 439084800};
    const double h = x.high;
    double sum = 0;
    for (int k = 9; k >= 0; --k)
        sum = h * (1 / kTerms[k] + sum);
    return kEulerGamma + x + h * sum;
}

double HalfOfEi(double x) {
    if (x > kOverflow) return kInfinity;
    const DoubleDouble scaled = AtPiece(kEiFar, {x, 0});
    return TimesExp({scaled.high / 2, scaled.low / 2}, x);
}

double PositiveEi(double x) {
    if (x < kEiLogarithmic) return ToDouble(QuickLog(x) + EiWithoutLogarithm({x, 0}));
    if (x < kFar) return ToDouble(AtPiece(kEiNear, {x, 0}));
    if (x > kOverflow) return kInfinity;
    return TimesExp(AtPiece(kEiFar, {x, 0}), x);
}

/// For x above 1; t is its logarithm.
double LiAbove(double x, DoubleDouble t) {
    if (t.high >= kFar) return ToDouble(AtPiece(kEiFar, t) * x);
    if (t.high >= kEiLogarithmic) return ToDouble(AtPiece(kEiNear, t));
    const DoubleDouble logarithm = QuickLog(t.high) + t.low / t.high;
    return ToDouble(logarithm + EiWithoutLogarithm(t));
}

double PositiveShi(double x) {
    if (x < kLinear) return x;
    if (x < kNearZero) return x + x * SineIntegralSeries(x * x);
    if (x < kFar) return ToDouble(AtPiece(kShiNear, {x, 0}));
    if (x < kHalfOfEi) return TimesExp(AtPiece(kShiFar, {x, 0}), x);
    return HalfOfEi(x);
}

/// E1(x) for x from 0 to 1: DLMF 6.6.2.
double E1NearZero(double x) {
    double term = 1;
    double sum = 0;
    for (int k = 1; k <= 20; ++k) {
        term *= -x / k;
        sum -= term / k;
    }
    return sum - kEulerGamma.high - std::log(x);
}

/// E1(x) for x above 0. From 1 on it comes from the even part of its continued fraction (DLMF
/// 6.9.1), evaluated from the back. The error after k terms is about exp(-4 sqrt(k)) at x = 1,
/// where it converges slowest.
double E1(double x) {
    constexpr int kTerms = 120;
    if (x < 1) return E1NearZero(x);
    double tail = 0;
    for (int k = kTerms; k >= 1; --k)
        tail = 1.0 * k * k / (x + 2 * k + 1 - tail);
    return std::exp(-x) / (x + 1 - tail);
}

}  // namespace

KALVEX_WITH_FMA
double Ei(double x) {
    if (std::isnan(x)) return x;
    if (x == 0) return -kInfinity;
    if (x > 0) return PositiveEi(x);
    if (x < -750) return 0;  // below the least double
    return -E1(-x);
}

KALVEX_WITH_FMA
double Li(double x) {
    if (std::isnan(x) || x == kInfinity) return x;
    if (x <= 0) throw ap::ap_error{"Domain error in Li"};
    if (x == 1) return -kInfinity;
    const DoubleDouble t = QuickLog(x);
    if (x < 1) return Ei(t.high) + t.low * (x / t.high);
    return LiAbove(x, t);
}

KALVEX_WITH_FMA
double Shi(double x) {
    if (std::isnan(x)) return x;
    return std::copysign(PositiveShi(std::fabs(x)), x);
}

KALVEX_WITH_FMA
double Chi(double x) {
    if (std::isnan(x)) return x;
    x = std::fabs(x);
    if (x == 0) return -kInfinity;
    if (x < kNearZero) return CosineIntegralNearZero(x, x * x);
    if (x < kFar) return ToDouble(AtPiece(kChiNear, {x, 0}));
    if (x < kHalfOfEi) return TimesExp(AtPiece(kChiFar, {x, 0}), x);
    return HalfOfEi(x);
}

}  // namespace kalvex::specfun
