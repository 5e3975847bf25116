// Hermite polynomials by their recurrence (DLMF 18.9.1). Odd ones of a tiny x are computed at a
// scaled x, so that no part is denormal. Only low degrees have values within the range of doubles.
// For even n |H(n,0)| is n!/(n/2)!, which overflows from n = 270 on. The first term of an odd one
// is 2 n!/((n-1)/2)! x, which overflows from n = 493 on even for the smallest x. From there on the
// only finite value is the zero in the middle of the odd ones: no double is so close to another
// zero, by more than 500 digits, that the value would be finite.
#include <cmath>

#include "numbers/double_double.h"
#include "specfun/polynomials/recurrence.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kMostSteps = 600;     // beyond it all values but the zero in the middle overflow
constexpr double kFarthest = 0x1p511;  // from here on 4x^2 - 2 overflows, and so do higher degrees

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

KALVEX_WITH_FMA
double Recurrence(double n, double x) {
    const int tinyBits = TinyBits(x);
    const double twiceX = 2 * std::ldexp(x, tinyBits);
    Neighbours p = {{1, 0}, {twiceX, 0}, std::fmod(n, 2) == 0 ? 0 : -tinyBits};
    for (double k = 1; k < n; ++k) {
        KeepInRange(p);
        HermiteStep(p, twiceX, 2 * k);
    }
    return Finite("Hermite", p);
}

}  // namespace

double Hermite(double degree, double x) {
    const double n = IntegralDegree(degree, 0, "Hermite");
    if (std::isnan(x)) return x;
    if (n == 0) return 1;
    if (x == 0 && std::fmod(n, 2) == 1) return 0;
    if (n > kMostSteps || (n > 1 && std::fabs(x) >= kFarthest)) return Finite("Hermite", INFINITY);
    return Recurrence(n, x);
}

}  // namespace kalvex::specfun
