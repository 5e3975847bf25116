// Legendre polynomials by their recurrence (DLMF 18.9.1). Odd ones of a tiny x are computed at a
// scaled x, so that no part is a denormal number.
#include <cmath>

#include "specfun/polynomials/recurrence.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// P(k+1) = t + k/(k+1) (t - P(k-1)), t = x P(k).
void LegendreStep(Neighbours& p, double x, double k) {
    const double ratio = k / (k + 1);
    const double ratioLow = std::fma(-ratio, k + 1, k) / (k + 1);
    const DoubleDouble t = TwoProduct(x, p.now.high);
    const double tLow = t.low + x * p.now.low;
    const DoubleDouble s = TwoSum(t.high, -p.before.high);
    const double sLow = s.low + (tLow - p.before.low);
    const DoubleDouble q = TwoProduct(s.high, ratio);
    const double qLow = q.low + (s.high * ratioLow + sLow * ratio);
    const DoubleDouble sum = TwoSum(t.high, q.high);
    p.before = p.now;
    p.now = {sum.high, sum.low + (tLow + qLow)};
}

}  // namespace

KALVEX_WITH_FMA
double Legendre(double degree, double x) {
    const int n = Steps(degree, "Legendre");
    if (std::isnan(x)) return x;
    if (n == 0) return 1;
    const int tinyBits = TinyBits(x);
    const double scaledX = std::ldexp(x, tinyBits);
    Neighbours p = {{1, 0}, {scaledX, 0}, n % 2 == 0 ? 0 : -tinyBits};
    for (int k = 1; k < n; ++k) {
        LegendreStep(p, scaledX, k);
        KeepInRange(p);
    }
    return Finite("Legendre", p);
}

}  // namespace kalvex::specfun
