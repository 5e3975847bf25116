// Hermite and Laguerre polynomials by their three-term recurrences (DLMF 18.9), which
// are stable upwards: the polynomials are never the smaller of the two solutions. Rounding alone
// would still spoil the last digits of a high degree, so each step also computes the exact error
// of its own roundings and carries it to first order beside the value ("compensated" in the sense
// of Ogita, Rump and Oishi, 2005). What is left is of second order, degree^2 2^-106 of the local
// amplitude, below half a unit in the last place of the value or of what the last bit of x does
// to it. Values are scaled down by powers of two on their way, so that only a result beyond the
// range overflows; odd polynomials of a tiny x are computed at a scaled x for the same reason.
#include <cmath>
#include <string>

#include "base/truncate.h"
#include "specfun/polynomials/degree.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// The degree as a number of steps. Throws "NAME: the degree is too large" beyond MaxOrder.
int Steps(double degree, const char* name) {
    const double n = IntegralDegree(degree, 0, name);
    if (n > MaxOrder) throw ap::ap_error{std::string(name) + ": the degree is too large"};
    return TruncateToInt32(n);
}

constexpr int kScalingBits = 300;
constexpr double kLarge = 0x1p300;

/// Two neighbours in a recurrence; the low parts are the errors carried.
struct Neighbours {
    DoubleDouble before;
    DoubleDouble now;
    int exponent = 0;  // of the power of two to multiply by
};

void KeepInRange(Neighbours& p) {
    if (std::fabs(p.now.high) < kLarge) return;
    p.before = Scale(p.before, -kScalingBits);
    p.now = Scale(p.now, -kScalingBits);
    p.exponent += kScalingBits;
}

double Finite(const char* name, const Neighbours& p) {
    const double value = ToDouble(p.now);
    const double scaled = p.exponent == 0 ? value : std::ldexp(value, p.exponent);
    if (!std::isfinite(scaled)) throw ap::ap_error{std::string("Overflow in ") + name};
    return scaled;
}

/// The power of two that brings a tiny x to 2^-100, 0 for any other: the polynomial of odd degree
/// is linear there and the even one constant, and no step meets denormal numbers.
int TinyBits(double x) {
    constexpr double kTiny = 0x1p-200;
    constexpr int kBitsBelow = 100;
    if (!(std::fabs(x) < kTiny) || x == 0) return 0;
    return -kBitsBelow - std::ilogb(x);
}

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
