// Airy functions. The library answers 0 and 1e300 for x beyond 25.8; from 25 on the asymptotic
// series in 1/zeta, zeta = 2/3 x^(3/2) >= 83, whose terms have shrunk below 1e-18 after ten.
#include <cmath>
#include <numbers>

#include "specfun/library_call.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kSeriesFrom = 25;
constexpr double kVanishing = -1e200;  // zeta overflows a little further out

struct AiryPair {
    double ai = 0;
    double bi = 0;
};

AiryPair LibraryAiry(double x) {
    AiryPair pair;
    double aiDerivative = 0;
    double biDerivative = 0;
    alglib::airy(x, pair.ai, aiDerivative, pair.bi, biDerivative);
    return pair;
}

/// Sum of u(k) r^k with u(k)/u(k-1) = (6k-5)(6k-3)(6k-1) / (216 k (2k-1)); r is 1/zeta or its
/// negative.
double SeriesInZeta(double r) {
    double sum = 1;
    double term = 1;
    for (int k = 1; k <= 10; ++k) {
        term *= r * (6.0 * k - 5) * (6.0 * k - 3) * (6.0 * k - 1) / (216.0 * k * (2.0 * k - 1));
        sum += term;
    }
    return sum;
}

double Zeta(double x) {
    return 2 * x * std::sqrt(x) / 3;
}

/// sqrt(pi) x^(1/4).
double Amplitude(double x) {
    return std::sqrt(std::numbers::pi * std::sqrt(x));
}

}  // namespace

double AiryAi(double x) {
    if (x < kVanishing) return 0;
    if (x <= kSeriesFrom || std::isnan(x)) {
        return FromLibrary([x] { return LibraryAiry(x).ai; });
    }
    const double zeta = Zeta(x);
    return std::exp(-zeta) * SeriesInZeta(-1 / zeta) / (2 * Amplitude(x));
}

double AiryBi(double x) {
    if (x < kVanishing) return 0;
    if (x <= kSeriesFrom || std::isnan(x)) {
        return FromLibrary([x] { return LibraryAiry(x).bi; });
    }
    const double zeta = Zeta(x);
    const double exponential = std::exp(zeta);
    if (std::isinf(exponential)) return exponential;
    return exponential * SeriesInZeta(1 / zeta) / Amplitude(x);
}

}  // namespace kalvex::specfun
