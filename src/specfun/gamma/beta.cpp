// Beta function of positive arguments, b the greater one. The arguments and s = a + b are shifted
// upward to a', b' and s' of 10 or more. The shifts are products in double-double arithmetic. Then
// Stirling's series is applied to all three gamma functions at once (DLMF 5.11.1): with t = s' -
// b',
//
//  ln Gamma(a') Gamma(b') / Gamma(s') = (a'-1/2) ln a' - (b'-1/2) ln(1+t/b') - t ln s'
//                                       + (s'-a'-b') + ln(2 pi)/2 + D(a') + D(b') - D(s').
//
// No two terms that are much greater than the result are subtracted from each other. The sum, of
// magnitude up to 745, must be right to 17 places behind the point, so that it is computed in
// double-double arithmetic too. D, the Stirling correction, is below 0.01.
#include <algorithm>
#include <cmath>
#include <limits>

#include "numbers/double_double.h"
#include "numbers/quick_log_exp.h"
#include "specfun/gamma/stirling.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool IsPole(double x) {
    return x <= 0 && std::floor(x) == x;
}

/// Gamma(z) = Gamma(shifted) / product.
struct Shift {
    DoubleDouble shifted;
    DoubleDouble product = {1, 0};
};

Shift ShiftUp(DoubleDouble z) {
    Shift result = {z};
    while (result.shifted.high < kLeastForStirling) {
        result.product *= result.shifted;
        result.shifted += 1.0;
    }
    return result;
}

/// (b - 1/2) ln(1 + t/b), where s = b + t and t is below 1100.
DoubleDouble TimesLogOfRatio(DoubleDouble t, DoubleDouble b, DoubleDouble s) {
    constexpr double kSmall = 0.25;
    constexpr double kVast = 0x1p100;  // from there on it is t (1 - (t+1)/(2b))
    if (b.high > kVast) return t;
    const bool small = std::fabs(t.high) < kSmall * b.high;
    const DoubleDouble log = small ? LogOnePlus(t / b) : Log(s / b);
    return (b - 0.5) * log;
}

/// 2^-80 <= a <= b, a below 1100.
double ByStirling(double a, double b) {
    const Shift first = ShiftUp({a, 0});
    const Shift second = ShiftUp({b, 0});
    const Shift sum = ShiftUp(TwoSum(a, b));
    const bool plain = b >= kLeastForStirling;  // then neither b nor the sum is shifted
    const DoubleDouble t = plain ? DoubleDouble{a, 0} : sum.shifted - second.shifted;
    DoubleDouble exponent = (first.shifted - 0.5) * Log(first.shifted);
    exponent -= TimesLogOfRatio(t, second.shifted, sum.shifted);
    exponent -= t * Log(sum.shifted);
    exponent += t - first.shifted + kHalfLnTwoPi;
    exponent += StirlingCorrection(first.shifted.high) + StirlingCorrection(second.shifted.high) -
                StirlingCorrection(sum.shifted.high);
    constexpr double kVanishing = -900;
    if (exponent.high < kVanishing) return 0;
    int powerOfTwo = 0;
    const DoubleDouble power = QuickExp(exponent, powerOfTwo);
    const DoubleDouble shifts = sum.product / (first.product * second.product);
    return std::ldexp(ToDouble(shifts * power), powerOfTwo);
}

/// For a below 2^-80: 1/a + 1/b, with the rounding errors of both quotients.
double OfTiny(double a, double b) {
    const double first = 1 / a;
    const double second = 1 / b;
    const double sum = first + second;
    if (std::isinf(sum)) return sum;
    const double rest = std::fma(-first, a, 1) / a + std::fma(-second, b, 1) / b;
    const DoubleDouble sumInTwo = TwoSum(first, second);
    return sumInTwo.high + (sumInTwo.low + rest);
}

/// sin(pi x), exactly 0 for a whole x.
double SinePi(double x) {
    const double whole = std::nearbyint(x);
    const double sine = std::sin(kPi.high * (x - whole));
    return std::fmod(whole, 2.0) == 0 ? sine : -sine;
}

/// For a below 0 and b at least a, neither of them a pole. The gamma functions of negative
/// arguments are reflected (DLMF 5.5.3), which leaves a beta function of positive arguments.
double Reflected(double a, double b) {
    const double sum = a + b;
    if (b > 0 && sum > 0) return kPi.high / (SinePi(a) * b * Beta(1 - a, sum));
    if (b > 0) return SinePi(sum) / SinePi(a) * Beta(b, 1 - sum);
    return kPi.high * SinePi(sum) / (SinePi(a) * SinePi(b) * (1 - sum) * Beta(1 - a, 1 - b));
}

}  // namespace

KALVEX_WITH_FMA
double Beta(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return a + b;
    if (IsPole(a) || IsPole(b)) throw ap::ap_error{"Overflow in Beta"};
    const double lesser = std::min(a, b);
    const double greater = std::max(a, b);
    if (lesser < 0) return Reflected(lesser, greater);
    constexpr double kTiny = 0x1p-80;    // B = (a+b)/(ab) (1 - a (psi(1+b) + gamma) + ...)
    constexpr double kVanishing = 1100;  // B(a,a) is about 4^-a
    if (greater == kInfinity || lesser > kVanishing) return 0;
    if (lesser < kTiny) return OfTiny(lesser, greater);
    return ByStirling(lesser, greater);
}

}  // namespace kalvex::specfun
