// Three-term recurrences of orthogonal polynomials (DLMF 18.9), run upwards: they are stable, as
// the polynomials are never the smaller of the two solutions. Rounding alone would still spoil the
// last digits of a high degree, so each step also computes the exact error of its own roundings and
// carries it to first order beside the value ("compensated" in the sense of Ogita, Rump and Oishi,
// 2005). What is left is of second order, degree^2 2^-106 of the local amplitude. Values are scaled
// down by powers of two on their way, so that only a result beyond the range overflows.
#pragma once

#include <cmath>
#include <string>

#include "numbers/double_double.h"
#include "specfun/polynomials/degree.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {

inline constexpr int kScalingBits = 300;
inline constexpr double kLarge = 0x1p300;

/// Two neighbours in a recurrence; the low parts are the errors carried.
struct Neighbours {
    DoubleDouble before;
    DoubleDouble now;
    int exponent = 0;  // of the power of two to multiply by
};

/// To be called before each step, whose products then stay in the range unless the value does not.
inline void KeepInRange(Neighbours& p) {
    if (std::fabs(p.now.high) < kLarge) return;
    constexpr double kInverse = 1 / kLarge;  // std::ldexp would cost each step its registers
    p.before = {p.before.high * kInverse, p.before.low * kInverse};
    p.now = {p.now.high * kInverse, p.now.low * kInverse};
    p.exponent += kScalingBits;
}

/// The value, a zero without a sign; throws "Overflow in NAME" where it is beyond the range.
inline double Finite(const char* name, double value) {
    if (!std::isfinite(value)) throw ap::ap_error{std::string("Overflow in ") + name};
    return value + 0.0;
}

/// The value of `now`.
inline double Finite(const char* name, const Neighbours& p) {
    const double value = ToDouble(p.now);
    return Finite(name, p.exponent == 0 ? value : std::ldexp(value, p.exponent));
}

/// The power of two that brings a tiny x to 2^-100, 0 for any other: the polynomial of odd degree
/// is linear there and the even one constant, and no step meets denormal numbers.
inline int TinyBits(double x) {
    constexpr double kTiny = 0x1p-200;
    constexpr int kBitsBelow = 100;
    if (!(std::fabs(x) < kTiny) || x == 0) return 0;
    return -kBitsBelow - std::ilogb(x);
}

}  // namespace kalvex::specfun
