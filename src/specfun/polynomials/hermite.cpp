// Hermite polynomials by their recurrence (DLMF 18.9.1). Odd ones of a tiny x are computed at a
// scaled x, so that no part is a denormal number.
#include <cmath>

#include "specfun/polynomials/recurrence.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// H(k+1) = 2x H(k) - 2k H(k-1).
void HermiteStep(Neighbours& p, double twiceX, double twiceK) {
    const DoubleDouble first = TwoProduct(twiceX, p.now.high);
    const DoubleDouble second = TwoProduct(twiceK, p.before.high);
    const DoubleDouble sum = TwoSum(first.high, -second.high);
    const double rounding = sum.low + (first.low - second.low);
    const double carried = twiceX * p.now.low - twiceK * p.before.low;
    p.before = p.now;
    p.now = {sum.high, rounding + carried};
}

}  // namespace

KALVEX_WITH_FMA
double Hermite(double degree, double x) {
    const int n = Steps(degree, "Hermite");
    if (std::isnan(x)) return x;
    if (n == 0) return 1;
    const int tinyBits = TinyBits(x);
    const double twiceX = 2 * std::ldexp(x, tinyBits);
    Neighbours p = {{1, 0}, {twiceX, 0}, n % 2 == 0 ? 0 : -tinyBits};
    for (int k = 1; k < n; ++k) {
        HermiteStep(p, twiceX, 2.0 * k);
        KeepInRange(p);
    }
    return Finite("Hermite", p);
}

}  // namespace kalvex::specfun
