// Integrals that have no elementary form: Dawson, exponential, sine and cosine, hyperbolic, and
// Fresnel. The library's routines compute them in pairs. Where it answers 1e300 or not-a-number
// for large arguments, the limit or the asymptotic series
//   Ei(x) = exp(x)/x (1 + 1!/x + 2!/x^2 + ...)
// stands in (DLMF 6.12.2); Shi and Chi there differ from Ei/2 by exp(-2x) only.
#include <cmath>
#include <limits>
#include <numbers>

#include "specfun/library_call.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHyperbolicLimit = 80;  // the library stops at 88

struct Pair {
    double first = 0;
    double second = 0;
};

/// x of 700 or more: 8 terms leave less than 8!/700^8 = 1e-18. The exponential is split because it
/// overflows long before the quotient by x does.
double EiOfLarge(double x) {
    if (x == kInfinity) return kInfinity;
    double sum = 1;
    for (int k = 8; k >= 1; --k)
        sum = 1 + sum * k / x;
    const double half = std::exp(x / 2);
    return half * (sum / x) * half;
}

Pair SineAndCosineIntegral(double x) {
    Pair pair;
    alglib::sinecosineintegrals(x, pair.first, pair.second);
    return pair;
}

Pair HyperbolicIntegrals(double x) {
    Pair pair;
    alglib::hyperbolicsinecosineintegrals(x, pair.first, pair.second);
    return pair;
}

Pair FresnelIntegrals(double x) {
    Pair cosineAndSine;
    alglib::fresnelintegral(x, cosineAndSine.first, cosineAndSine.second);
    return cosineAndSine;
}

}  // namespace

double DawsonF(double x) {
    return FromLibrary([x] { return alglib::dawsonintegral(x); });
}

double Ei(double x) {
    if (std::isnan(x)) return x;
    if (x == 0) return -kInfinity;
    if (x >= 700) return EiOfLarge(x);
    if (x < -750) return 0;  // below the least double
    if (x < 0) return FromLibrary([x] { return -alglib::exponentialintegralen(-x, 1); });
    return FromLibrary([x] { return alglib::exponentialintegralei(x); });
}

double Si(double x) {
    if (std::isinf(x)) return std::copysign(std::numbers::pi / 2, x);
    return FromLibrary([x] { return SineAndCosineIntegral(x).first; });
}

double Ci(double x) {
    if (x == 0) return -kInfinity;
    if (std::isinf(x)) return 0;
    return FromLibrary([x] { return SineAndCosineIntegral(x).second; });
}

double Shi(double x) {
    if (std::isnan(x)) return x;
    if (std::fabs(x) > kHyperbolicLimit) return std::copysign(Ei(std::fabs(x)) / 2, x);
    return FromLibrary([x] { return HyperbolicIntegrals(x).first; });
}

double Chi(double x) {
    if (std::isnan(x)) return x;
    if (x == 0) return -kInfinity;
    if (std::fabs(x) > kHyperbolicLimit) return Ei(std::fabs(x)) / 2;
    return FromLibrary([x] { return HyperbolicIntegrals(x).second; });
}

double FresnelS(double x) {
    return FromLibrary([x] { return FresnelIntegrals(x).second; });
}

double FresnelC(double x) {
    return FromLibrary([x] { return FresnelIntegrals(x).first; });
}

}  // namespace kalvex::specfun
