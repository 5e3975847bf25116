// Airy functions. With zeta = 2/3 |x|^(3/2) the leading terms exp(-+zeta) x^(-1/4) are taken off
// for positive x: what is left is a polynomial in 1/zeta, from 25 on an asymptotic series (DLMF
// 9.7.5, 9.7.7). Below -25 sine and cosine of zeta, carried in two doubles, are combined with the
// same series (DLMF 9.7.9, 9.7.11). Near 0 both have polynomials, Bi one of Bi(x)/(x - zero) about
// its first zero. Between stand the library's routines.
#include <cmath>
#include <numbers>

#include "specfun/airy/airy_coefficients.h"
#include "specfun/library_call.h"
#include "specfun/polynomial.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kSeriesFrom = 25;
constexpr double kVanishing = -1e200;  // zeta overflows a little further out
constexpr double kTurnsLost = 1e15;    // a rounding of zeta is a good part of a turn

/// u(k) r^k with u(k)/u(k-1) = (6k-5)(6k-3)(6k-1) / (216 k (2k-1)), even and odd k apart; r is
/// 1/zeta, at most 1/83.
struct Series {
    double even = 1;
    double odd = 0;
};

/// The sign of the square of r is that of `turn`: 1 for positive x, -1 for negative x.
Series SeriesInZeta(double r, double turn) {
    Series series;
    double term = 1;
    for (int k = 1; k <= 10; ++k) {
        term *= r * (6.0 * k - 5) * (6.0 * k - 3) * (6.0 * k - 1) / (216.0 * k * (2.0 * k - 1));
        if (k % 2 == 1) {
            series.odd += term;
            term *= turn;
        } else {
            series.even += term;
        }
    }
    return series;
}

/// x positive.
double Zeta(double x) {
    return 2 * x * std::sqrt(x) / 3;
}

/// sqrt(pi) x^(1/4).
double Amplitude(double x) {
    return std::sqrt(std::numbers::pi * std::sqrt(x));
}

struct AiryPair {
    double ai = 0;
    double bi = 0;
};

/// Sine and cosine of zeta for -x.
SinCosPair OfZeta(double x) {
    const double rough = Zeta(x);
    if (rough > kTurnsLost) return {std::sin(rough), std::cos(rough)};
    const DoubleDouble power = Multiply(Sqrt({x, 0}), x);
    return SinCos(Divide(Multiply(power, 2), 3));
}

/// At -x, x of 25 or more.
AiryPair Oscillating(double x) {
    const auto [even, odd] = SeriesInZeta(1 / Zeta(x), -1);
    const auto [sine, cosine] = OfZeta(x);
    const double amplitude = Amplitude(x) * std::numbers::sqrt2;
    const double sum = sine + cosine;         // sqrt(2) cos(zeta - pi/4)
    const double difference = sine - cosine;  // sqrt(2) sin(zeta - pi/4)
    return {(sum * even + difference * odd) / amplitude,
            (sum * odd - difference * even) / amplitude};
}

AiryPair LibraryAiry(double x) {
    AiryPair pair;
    double aiDerivative = 0;
    double biDerivative = 0;
    alglib::airy(x, pair.ai, aiDerivative, pair.bi, biDerivative);
    return pair;
}

/// x of 2.125 or more.
double DecayingAi(double x) {
    const double zeta = Zeta(x);
    const double r = 1 / zeta;
    double factor = 0;
    if (x >= kSeriesFrom) {
        const auto [even, odd] = SeriesInZeta(r, 1);
        factor = even - odd;
    } else if (zeta >= 20) {
        factor = Polynomial(kAiScaled20, r - kAiScaled20Middle);
    } else if (zeta >= 5) {
        factor = Polynomial(kAiScaled5, r - kAiScaled5Middle);
    } else {
        factor = Polynomial(kAiScaled2, r - kAiScaled2Middle);
    }
    return std::exp(-zeta) * factor / (2 * Amplitude(x));
}

/// zeta of 4 or more. The exponential alone would overflow before the value does.
double GrowingBi(double x, double zeta) {
    const double r = 1 / zeta;
    double factor = 0;
    if (x >= kSeriesFrom) {
        const auto [even, odd] = SeriesInZeta(r, 1);
        factor = even + odd;
    } else if (zeta >= 20) {
        factor = Polynomial(kBiScaled20, r - kBiScaled20Middle);
    } else if (zeta >= 7) {
        factor = Polynomial(kBiScaled7, r - kBiScaled7Middle);
    } else {
        factor = Polynomial(kBiScaled4, r - kBiScaled4Middle);
    }
    const double half = std::exp(zeta / 2);
    return half * (factor / Amplitude(x)) * half;
}

}  // namespace

double AiryAi(double x) {
    if (std::isnan(x)) return x;
    if (x < kVanishing || x > 1e3) return 0;
    if (x <= -kSeriesFrom) return Oscillating(-x).ai;
    if (x < -1.875) return FromLibrary([x] { return LibraryAiry(x).ai; });
    if (x < -1.25) return Polynomial(kAiFar, x - kAiFarMiddle);
    if (x < -0.625) return Polynomial(kAiTop, x - kAiTopMiddle);
    if (x < 0) return Polynomial(kAiNear, x - kAiNearMiddle);
    if (x < 0.7) return Polynomial(kAi0, x - kAi0Middle);
    if (x < 1.4) return Polynomial(kAi1, x - kAi1Middle);
    if (x < 2.125) return Polynomial(kAi2, x - kAi2Middle);
    return DecayingAi(x);
}

double AiryBi(double x) {
    if (std::isnan(x)) return x;
    if (x < kVanishing) return 0;
    if (x > 1e3) return HUGE_VAL;
    if (x <= -kSeriesFrom) return Oscillating(-x).bi;
    if (x < -2.5) return FromLibrary([x] { return LibraryAiry(x).bi; });
    if (x < -1.6) return Polynomial(kBiFar, x - kBiFarMiddle);
    if (x < -0.75) {
        const double distance = (x - kBiZeroAt.high) - kBiZeroAt.low;
        return distance * Polynomial(kBiZero, x - kBiZeroMiddle);
    }
    if (x < 0) return Polynomial(kBiNear, x - kBiNearMiddle);
    if (x < 0.75) return Polynomial(kBiStart, x - kBiStartMiddle);
    const double zeta = Zeta(x);
    if (zeta >= 4) return GrowingBi(x, zeta);
    return FromLibrary([x] { return LibraryAiry(x).bi; });
}

}  // namespace kalvex::specfun
