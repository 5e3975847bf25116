// Airy functions. For positive x the leading factor exp(-+zeta) x^(-1/4) with zeta = 2/3 x^(3/2)
// (DLMF 9.7.5, 9.7.7) is computed separately, with zeta and the root as double-doubles; the
// remaining factor is a polynomial in 1/zeta. Near 0 both functions are polynomials; about the
// first zero of Bi the polynomial is that of Bi(x)/(x - zero). wave.cpp has the arguments where
// both oscillate.
#include <cmath>
#include <cstddef>

#include "numbers/double_double.h"
#include "specfun/airy/airy_coefficients.h"
#include "specfun/airy/roots.h"
#include "specfun/airy/wave.h"
#include "specfun/polynomial.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kVanishing = 110;  // Ai is 0 from 107.5 on, Bi is infinite from 104.44 on
constexpr double kHalved = 600;     // exponential functions of more are computed as a square

/// c[2] + c[3] h + c[4] h^2 + ... by Horner's rule, with the last two steps in double-double
/// arithmetic. c[0] and c[1] are the rounding errors of the coefficients c[2] and c[3].
template <std::size_t N>
DoubleDouble ClosePolynomial(const double (&c)[N], double h) {
    double sum = c[N - 1];
    for (std::size_t i = N - 2; i >= 4; --i)
        sum = c[i] + h * sum;
    const DoubleDouble slope = TwoSum(c[3], h * sum);
    const DoubleDouble rise = TwoProduct(h, slope.high);
    const DoubleDouble total = TwoSum(c[2], rise.high);
    return {total.high, total.low + (rise.low + h * (slope.low + c[1]) + c[0])};
}

/// exp(+-zeta)/(sqrt(pi) x^(1/4)) times a factor. The exponential function by itself may be out of
/// range although the product is not.
double Leading(DoubleDouble zeta, double sign, const Roots& roots, double factor) {
    const DoubleDouble amplitude = roots.inverse * kInverseRootOfPi;
    const DoubleDouble scaled = TwoProduct(amplitude.high, factor);
    const double low = scaled.low + (amplitude.low * factor + scaled.high * (sign * zeta.low));
    const bool halved = zeta.high > kHalved;
    const double power = std::exp(sign * (halved ? zeta.high / 2 : zeta.high));
    const double value = std::fma(power, scaled.high, power * low);
    return halved ? value * power : value;
}

/// x of 2.5 or more.
KALVEX_WITH_FMA
double DecayingAi(double x) {
    const Roots roots = RootsOf(x);
    const DoubleDouble zeta = ZetaOf(x, roots);
    const double r = 1 / zeta.high;
    double factor = 0;
    if (zeta.high >= 20) {
        factor = Polynomial(kAiScaled20, r - kAiScaled20Middle);
    } else if (zeta.high >= 5) {
        factor = Polynomial(kAiScaled5, r - kAiScaled5Middle);
    } else {
        factor = Polynomial(kAiScaled2, r - kAiScaled2Middle);
    }
    return Leading(zeta, -1, roots, factor / 2);
}

/// x of 3.375 or more.
KALVEX_WITH_FMA
double GrowingBi(double x) {
    const Roots roots = RootsOf(x);
    const DoubleDouble zeta = ZetaOf(x, roots);
    const double r = 1 / zeta.high;
    double factor = 0;
    if (zeta.high >= 20) {
        factor = Polynomial(kBiScaled20, r - kBiScaled20Middle);
    } else if (zeta.high >= 7) {
        factor = Polynomial(kBiScaled7, r - kBiScaled7Middle);
    } else {
        factor = Polynomial(kBiScaled4, r - kBiScaled4Middle);
    }
    return Leading(zeta, 1, roots, factor);
}

template <std::size_t N>
double Near(const double (&c)[N], double middle, double x) {
    return ToDouble(ClosePolynomial(c, x - middle));
}

double BiAboutZero(double x) {
    const double distance = x - kBiZeroAt.high;
    const DoubleDouble factor = ClosePolynomial(kBiZero, distance);
    const double rest = distance * factor.low - kBiZeroAt.low * factor.high;
    return std::fma(distance, factor.high, rest);
}

}  // namespace

double AiryAi(double x) {
    if (std::isnan(x)) return x;
    if (std::isinf(x) || x > kVanishing) return 0;
    if (x < kWaveFrom) return AiryWave(-x, 0);
    if (x < -1.125) return Near(kAiFar, kAiFarMiddle, x);
    if (x < -0.5) return Near(kAiTop, kAiTopMiddle, x);
    if (x < 0.5) return Near(kAiNear, kAiNearMiddle, x);
    if (x < 1.25) return Near(kAi0, kAi0Middle, x);
    if (x < 2.5) return Near(kAi1, kAi1Middle, x);
    return DecayingAi(x);
}

double AiryBi(double x) {
    if (std::isnan(x)) return x;
    if (x > kVanishing) return HUGE_VAL;
    if (std::isinf(x)) return 0;
    if (x < kWaveFrom) return AiryWave(-x, 1);
    if (x < -0.5) return BiAboutZero(x);
    if (x < 0.5) return Near(kBiNear, kBiNearMiddle, x);
    if (x < 1.25) return Near(kBi0, kBi0Middle, x);
    if (x < 2.25) return Near(kBi1, kBi1Middle, x);
    if (x < 3.375) return Near(kBi2, kBi2Middle, x);
    return GrowingBi(x);
}

}  // namespace kalvex::specfun
