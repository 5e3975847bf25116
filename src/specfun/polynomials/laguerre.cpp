// Laguerre polynomials by the recurrence of their differences (DLMF 18.9.1). laguerre_large.cpp has
// the large degrees.
#include <cmath>

#include "numbers/double_double.h"
#include "specfun/polynomials/laguerre_large.h"
#include "specfun/polynomials/recurrence.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kTiny = 0x1p-100;     // below it 1 - n x is 1 for every degree n of the recurrence
constexpr double kFarthest = 0x1p513;  // from here on x^2/2 overflows, and so do higher degrees

/// L(k+1) = L(k) + d(k+1), (k+1) d(k+1) = k d(k) - x L(k), where d is in `before`.
void LaguerreStep(Neighbours& p, double x, double k) {
    const double inverse = 1 / (k + 1);
    const DoubleDouble first = TwoProduct(k, p.before.high);
    const DoubleDouble second = TwoProduct(x, p.now.high);
    const DoubleDouble sum = TwoSum(first.high, -second.high);
    const double quotient = sum.high * inverse;
    const double rest = std::fma(-quotient, k + 1, sum.high);
    const double carried = k * p.before.low - x * p.now.low;
    const double low = (rest + (sum.low + (first.low - second.low)) + carried) * inverse;
    const DoubleDouble next = TwoSum(p.now.high, quotient);
    p.before = {quotient, low};
    p.now = {next.high, p.now.low + (next.low + low)};
}

KALVEX_WITH_FMA
double Recurrence(double n, double x) {
    const DoubleDouble first = TwoSum(1, -x);
    Neighbours p = {{-x, 0}, {first.high, std::isfinite(x) ? first.low : 0}};
    for (double k = 1; k < n; ++k) {
        KeepInRange(p);
        LaguerreStep(p, x, k);
    }
    return Finite("Laguerre", p);
}

}  // namespace

double Laguerre(double degree, double x) {
    const double n = IntegralDegree(degree, 0, "Laguerre");
    if (std::isnan(x)) return x;
    if (n == 0) return 1;
    if (n >= kLeastLargeLaguerre) return Finite("Laguerre", LargeLaguerre(n, x));
    if (std::fabs(x) < kTiny) return 1;
    if (n > 1 && std::fabs(x) >= kFarthest) return Finite("Laguerre", INFINITY);
    return Recurrence(n, x);
}

}  // namespace kalvex::specfun
