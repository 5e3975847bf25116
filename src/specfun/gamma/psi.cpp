// Digamma function. Between 1 and 2 a polynomial for Psi(x)/(x - zero) keeps the zero exact; up to
// 10 by Psi(x + 1) = Psi(x) + 1/x from there, the sum carried in two doubles; beyond by the
// asymptotic series (DLMF 5.11.2); below 0 by reflection (DLMF 5.5.4), the distance to the nearest
// pole or zero of the cotangent taken exactly.
#include <cmath>

#include "specfun/integrals/integral_coefficients.h"
#include "specfun/polynomial.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// x of 10 or more: eight terms leave less than 1e-17.
double AsymptoticPsi(double x) {
    const double r = 1 / x;
    const double s = r * r;
    const double tail =
        1.0 / 12 -
        s * (1.0 / 120 -
             s * (1.0 / 252 -
                  s * (1.0 / 240 - s * (1.0 / 132 - s * (691.0 / 32760 -
                                                         s * (1.0 / 12 - s * (3617.0 / 8160)))))));
    return std::log(x) - (r / 2 + s * tail);
}

/// x from 1 to 2.
double PsiAboutZero(double x) {
    const double distance = (x - kPsiZeroAt.high) - kPsiZeroAt.low;
    return distance * Polynomial(kPsiZero, x - kPsiZeroMiddle);
}

double PositivePsi(double x) {
    if (x >= 10) return AsymptoticPsi(x);
    if (x < 1) return PsiAboutZero(x + 1) - 1 / x;
    const double steps = std::floor(x) - 1;
    const double base = x - steps;
    DoubleDouble sum = {PsiAboutZero(base), 0};
    for (double k = 0; k < steps; ++k)
        sum = Add(sum, 1 / (base + k));
    return sum.high;
}

/// pi cot(pi x) for x that is not integral.
double PiCotangent(double x) {
    const double rest = x - std::nearbyint(x);
    if (std::fabs(rest) <= 0.25) return kPi.high / std::tan(kPi.high * rest);
    return std::copysign(kPi.high * std::tan(kPi.high * (0.5 - std::fabs(rest))), rest);
}

}  // namespace

double Psi(double x) {
    if (std::isnan(x)) return x;
    if (x > 0) return PositivePsi(x);
    if (std::floor(x) == x) throw ap::ap_error{"Singularity in Psi(x)"};
    if (x > -1e-17) return -1 / x;
    return PositivePsi(1 - x) - PiCotangent(x);
}

}  // namespace kalvex::specfun
