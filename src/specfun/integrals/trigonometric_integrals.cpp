// Sine and cosine integral. With the auxiliary functions f and g (DLMF 6.2.17 to 6.2.20)
//   Ci(x) = f(x) sin x - g(x) cos x,   Si(x) = pi/2 - f(x) cos x - g(x) sin x,
// f and g by polynomials in 1/x up to 48 and by their asymptotic series (DLMF 6.12.3, 6.12.4)
// beyond. Below 4 both have polynomials of their own, about its second zero Ci one for
// Ci(x)/(x - zero). Near 0 stand the power series (DLMF 6.6.5, 6.6.6), for Ci with the logarithm
// and what its sum with Euler's constant leaves.
#include <cmath>
#include <limits>

#include "specfun/integrals/integral_coefficients.h"
#include "specfun/integrals/integral_series.h"
#include "specfun/polynomial.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kAsymptotic = 48;
constexpr double kLinear = 1e-8;  // below it x is sin x

struct Auxiliary {
    double f = 0;
    double g = 0;
};

/// x of 48 or more: ten terms leave 22!/48^22 < 1e-15 of g, 1e-17 of f.
Auxiliary AsymptoticAuxiliary(double x) {
    const double r = 1 / x;
    const double square = r * r;
    if (x > 1e10) return {r, square};
    double f = 1;
    double g = 1;
    for (int k = 10; k >= 1; --k) {
        f = 1 - f * square * (2 * k) * (2 * k - 1);
        g = 1 - g * square * (2 * k) * (2 * k + 1);
    }
    return {f * r, g * square};
}

/// x of 4 or more.
Auxiliary AuxiliaryAt(double x) {
    if (x >= kAsymptotic) return AsymptoticAuxiliary(x);
    const double r = 1 / x;
    if (x >= 12) {
        return {Polynomial(kTrigF12, r - kTrigF12Middle) / x,
                Polynomial(kTrigG12, r - kTrigG12Middle) / x / x};
    }
    if (x >= 6) {
        return {Polynomial(kTrigF6, r - kTrigF6Middle) / x,
                Polynomial(kTrigG6, r - kTrigG6Middle) / x / x};
    }
    return {Polynomial(kTrigF4, r - kTrigF4Middle) / x,
            Polynomial(kTrigG4, r - kTrigG4Middle) / x / x};
}

}  // namespace

double Si(double x) {
    if (std::isnan(x)) return x;
    const double magnitude = std::fabs(x);
    if (std::isinf(x)) return std::copysign(kHalfPi.high, x);
    if (magnitude < kLinear) return x;
    if (magnitude < 1.5) return x + x * SineIntegralSeries(-x * x);
    if (magnitude < 2.75) {
        return std::copysign(Polynomial(kSiRising, magnitude - kSiRisingMiddle), x);
    }
    if (magnitude < 4) {
        return std::copysign(Polynomial(kSiFalling, magnitude - kSiFallingMiddle), x);
    }
    const auto [f, g] = AuxiliaryAt(magnitude);
    const double rest = kHalfPi.low - f * std::cos(magnitude) - g * std::sin(magnitude);
    return std::copysign(kHalfPi.high + rest, x);
}

double Ci(double x) {
    if (std::isnan(x)) return x;
    x = std::fabs(x);
    if (x == 0) return -std::numeric_limits<double>::infinity();
    if (std::isinf(x)) return 0;
    if (x < 0.75) return CosineIntegralNearZero(x, -x * x);
    if (x < 1.5) return Polynomial(kCiRising, x - kCiRisingMiddle);
    if (x < 2.5) return Polynomial(kCiFalling, x - kCiFallingMiddle);
    if (x < 4) {
        const double distance = (x - kCiZeroAt.high) - kCiZeroAt.low;
        return distance * Polynomial(kCiZero, x - kCiZeroMiddle);
    }
    const auto [f, g] = AuxiliaryAt(x);
    return f * std::sin(x) - g * std::cos(x);
}

}  // namespace kalvex::specfun
