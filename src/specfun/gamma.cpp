// Gamma, psi and beta. The library's routines cover the plane well but for its edges: its gamma
// function is not-a-number where it should overflow or vanish, and its beta function subtracts
// large logarithms. There, with Delta(x) the Stirling correction of ln Gamma(x),
//   Gamma(b)/Gamma(a+b) = exp(a - (b-1/2) ln(1+a/b) - a ln(a+b) + Delta(b) - Delta(a+b)),
// in which nothing large is subtracted (b is the greater argument).
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "specfun/library_call.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool IsPole(double x) {
    return x <= 0 && std::floor(x) == x;
}

/// ln Gamma(x) - ((x-1/2) ln x - x + ln(2 pi)/2) for x of 17 or more (DLMF 5.11.1), error 1e-17.
double StirlingCorrection(double x) {
    const double r = 1 / x;
    const double s = r * r;
    return r *
           (1.0 / 12 - s * (1.0 / 360 - s * (1.0 / 1260 - s * (1.0 / 1680 - s * (1.0 / 1188)))));
}

/// b the greater argument, a + b at least 170.
double BetaOfLarge(double a, double b) {
    if (b == kInfinity) return 0;
    const double sum = a + b;
    const double correction = StirlingCorrection(b) - StirlingCorrection(sum);
    if (a < 17) {
        const double exponent = a - (b - 0.5) * std::log1p(a / b) - a * std::log(sum) + correction;
        return Gamma(a) * std::exp(exponent);
    }
    const double exponent = -a * std::log1p(b / a) - b * std::log1p(a / b);
    return std::sqrt(2 * std::numbers::pi) * std::sqrt(1 / a + 1 / b) *
           std::exp(exponent + correction + StirlingCorrection(a));
}

}  // namespace

double Gamma(double x) {
    constexpr double kOverflow = 171.7;
    constexpr double kVanishing = -180;  // the library works down to here
    if (x > kOverflow) return kInfinity;
    if (x >= kVanishing || std::isnan(x)) {
        return FromLibrary([x] { return alglib::gammafunction(x); });
    }
    if (IsPole(x)) return -kInfinity;
    const bool negative = std::fmod(std::floor(x), 2.0) != 0;
    return negative ? -0.0 : 0.0;
}

double Psi(double x) {
    if (IsPole(x)) throw ap::ap_error{"Singularity in Psi(x)"};
    return FromLibrary([x] { return alglib::psi(x); });
}

double Beta(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return a + b;
    if (IsPole(a) || IsPole(b)) throw ap::ap_error{"Overflow in Beta"};
    const double lesser = std::min(a, b);
    const double greater = std::max(a, b);
    if (lesser > 0 && greater + lesser > 170) return BetaOfLarge(lesser, greater);
    if (lesser > 0 && 1 / lesser == kInfinity) return kInfinity;
    return FromLibrary([a, b] { return alglib::beta(a, b); });
}

}  // namespace kalvex::specfun
