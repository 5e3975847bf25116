// Fresnel integrals. From 8 on by the auxiliary functions f and g (DLMF 7.5.3, 7.5.4)
//   S(x) = 1/2 - f cos(pi/2 x^2) - g sin(pi/2 x^2),
//   C(x) = 1/2 + f sin(pi/2 x^2) - g cos(pi/2 x^2)
// with their asymptotic series (DLMF 7.12.2, 7.12.3). The square is taken as the exact sum of two
// doubles, of which whole turns are taken off before anything is rounded. Below 8 by the library,
// but for a polynomial about the first maximum of each, where nothing but the last rounding is
// allowed.
#include <cmath>

#include "specfun/integrals/integral_coefficients.h"
#include "specfun/library_call.h"
#include "specfun/polynomial.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kSeriesFrom = 8;
constexpr double kCubic = 1e-5;  // below it one term of the power series is the value
constexpr double kHalf = 1e17;   // beyond it f is below a rounding of 1/2

/// Sine and cosine of pi/2 x^2.
SinCosPair OfQuarterTurns(double x) {
    const DoubleDouble square = TwoProduct(x, x);
    const double high = std::fmod(square.high, 4.0);
    const double low = std::fmod(square.low, 4.0);
    const double quarters = std::nearbyint(high + low);
    const DoubleDouble rest = TwoSum(high - quarters, low);
    return SinCos(Add(Multiply(kHalfPi, rest), Multiply(kHalfPi, std::fmod(quarters, 4.0))));
}

struct Auxiliary {
    double f = 0;
    double g = 0;
};

/// x of 8 or more: fourteen terms 1 3 5 ... (2k-1)/(pi x^2)^k leave less than 1e-19.
Auxiliary AuxiliaryAt(double x) {
    const double r = 1 / (kPi.high * x * x);
    double f = 0;
    double g = 0;
    double term = 1 / (kPi.high * x);
    for (int k = 0; k < 14; k += 2) {
        const double sign = k % 4 == 0 ? 1 : -1;
        f += sign * term;
        term *= (2 * k + 1) * r;
        g += sign * term;
        term *= (2 * k + 3) * r;
    }
    return {f, g};
}

struct Fresnel {
    double sine = 0;
    double cosine = 0;
};

/// x positive.
Fresnel LargeFresnel(double x) {
    if (x > kHalf) return {0.5, 0.5};
    const auto [sine, cosine] = OfQuarterTurns(x);
    const auto [f, g] = AuxiliaryAt(x);
    return {0.5 - (f * cosine + g * sine), 0.5 + (f * sine - g * cosine)};
}

Fresnel LibraryFresnel(double x) {
    Fresnel result;
    alglib::fresnelintegral(x, result.cosine, result.sine);
    return result;
}

}  // namespace

double FresnelS(double x) {
    if (std::isnan(x)) return x;
    const double magnitude = std::fabs(x);
    if (magnitude < kCubic) return kPi.high / 6 * x * x * x;
    if (magnitude >= kSeriesFrom) return std::copysign(LargeFresnel(magnitude).sine, x);
    if (magnitude > 1.125 && magnitude < 1.625) {
        return std::copysign(Polynomial(kFresnelS, magnitude - kFresnelSMiddle), x);
    }
    return FromLibrary([x] { return LibraryFresnel(x).sine; });
}

double FresnelC(double x) {
    if (std::isnan(x)) return x;
    const double magnitude = std::fabs(x);
    if (magnitude < kCubic) return x;
    if (magnitude >= kSeriesFrom) return std::copysign(LargeFresnel(magnitude).cosine, x);
    if (magnitude > 0.75 && magnitude < 1.25) {
        return std::copysign(Polynomial(kFresnelC, magnitude - kFresnelCMiddle), x);
    }
    return FromLibrary([x] { return LibraryFresnel(x).cosine; });
}

}  // namespace kalvex::specfun
