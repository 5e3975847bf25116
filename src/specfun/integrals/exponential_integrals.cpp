// Exponential, logarithmic and hyperbolic integrals. The library's routines stop short of the end
// of the range; there the asymptotic series
//   Ei(x) = exp(x)/x (1 + 1!/x + 2!/x^2 + ...)
// stands in (DLMF 6.12.2); Shi and Chi differ from Ei/2 by exp(-2x) only. Near 0 these two have
// their power series. The logarithmic integral is Ei(ln x); a rounding of ln x would cost up to 350
// units, so the rest of the logarithm is brought in by the derivative exp(t)/t of Ei.
#include <cmath>
#include <limits>

#include "specfun/integrals/integral_series.h"
#include "specfun/library_call.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHyperbolicLimit = 40;  // exp(-80) is below a rounding
constexpr double kSeriesFrom = 700;
constexpr double kLinear = 1e-8;  // below it x is sinh x

/// factor Ei(x) for x of 700 or more: 8 terms leave less than 8!/700^8 = 1e-18. The exponential is
/// split because it overflows long before the quotient by x does.
double EiOfLarge(double x, double factor) {
    if (x == kInfinity) return kInfinity;
    double sum = 1;
    for (int k = 8; k >= 1; --k)
        sum = 1 + sum * k / x;
    const double half = std::exp(x / 2);
    return half * (factor * sum / x) * half;
}

/// Ei(x)/2 for x beyond the hyperbolic limit.
double HalfEi(double x) {
    return x >= kSeriesFrom ? EiOfLarge(x, 0.5) : Ei(x) / 2;
}

struct Pair {
    double shi = 0;
    double chi = 0;
};

Pair HyperbolicIntegrals(double x) {
    Pair pair;
    alglib::hyperbolicsinecosineintegrals(x, pair.shi, pair.chi);
    return pair;
}

}  // namespace

double Ei(double x) {
    if (std::isnan(x)) return x;
    if (x == 0) return -kInfinity;
    if (x >= kSeriesFrom) return EiOfLarge(x, 1);
    if (x < -750) return 0;  // below the least double
    if (x < 0) return FromLibrary([x] { return -alglib::exponentialintegralen(-x, 1); });
    if (x < 1e-20) return std::log(x) + kEulerGamma.high;
    return FromLibrary([x] { return alglib::exponentialintegralei(x); });
}

double Li(double x) {
    if (std::isnan(x) || x == kInfinity) return x;
    if (x <= 0) throw ap::ap_error{"Domain error in Li"};
    if (x == 1) return -kInfinity;
    const DoubleDouble logarithm = Log({x, 0});
    return Ei(logarithm.high) + logarithm.low * (x / logarithm.high);
}

double Shi(double x) {
    if (std::isnan(x)) return x;
    const double magnitude = std::fabs(x);
    if (magnitude < kLinear) return x;
    if (magnitude < 2) return x + x * SineIntegralSeries(x * x);
    if (magnitude > kHyperbolicLimit) return std::copysign(HalfEi(magnitude), x);
    return FromLibrary([x] { return HyperbolicIntegrals(x).shi; });
}

double Chi(double x) {
    if (std::isnan(x)) return x;
    x = std::fabs(x);
    if (x == 0) return -kInfinity;
    if (x < 1) return CosineIntegralNearZero(x, x * x);
    if (x > kHyperbolicLimit) return HalfEi(x);
    return FromLibrary([x] { return HyperbolicIntegrals(x).chi; });
}

}  // namespace kalvex::specfun
