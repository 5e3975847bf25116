// Laguerre polynomials by the recurrence of their differences (DLMF 18.9.1).
#include <cmath>

#include "specfun/polynomials/recurrence.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

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

}  // namespace

KALVEX_WITH_FMA
double Laguerre(double degree, double x) {
    const int n = Steps(degree, "Laguerre");
    if (std::isnan(x)) return x;
    constexpr double kTiny = 0x1p-100;  // the polynomial is 1 - n x
    if (n == 0 || std::fabs(x) < kTiny) return 1;
    const DoubleDouble first = TwoSum(1, -x);
    Neighbours p = {{-x, 0}, {first.high, std::isfinite(x) ? first.low : 0}};
    for (int k = 1; k < n; ++k) {
        LaguerreStep(p, x, k);
        KeepInRange(p);
    }
    return Finite("Laguerre", p);
}

}  // namespace kalvex::specfun
