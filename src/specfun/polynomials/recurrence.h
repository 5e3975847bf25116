// Three-term recurrences of orthogonal polynomials (DLMF 18.9). They run upward, which is stable,
// as the polynomials are never the minimal solution. Rounding alone would still spoil the last
// digits of a high degree. So each step also computes the exact error of its own roundings and
// carries it to first order beside the value ("compensated" in the sense of Ogita, Rump and Oishi,
// 2005). What remains is of second order, degree^2 2^-106 of the local amplitude. Values are scaled
// down by powers of two on the way, so that only a result beyond the range overflows.
#pragma once

#include <cmath>
#include <string>

#include "numbers/double_double.h"
#include "specfun/polynomials/degree.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {

inline constexpr int kScalingBits = 300;
inline constexpr double kLarge = 0x1p300;

/// Two neighbours in a recurrence. The low parts are the errors carried.
struct Neighbours {
    DoubleDouble before;
    DoubleDouble now;
    int exponent = 0;  // both are to be multiplied by 2^exponent
};

/// Scales the two down if they are large. Called before each step, it keeps the products of the
/// step in range.
inline void KeepInRange(Neighbours& p) {
    if (std::fabs(p.now.high) < kLarge) return;
    constexpr double kInverse =
        1 / kLarge;  // not by std::ldexp: its call would move all values out of registers
    p.before = {p.before.high * kInverse, p.before.low * kInverse};
    p.now = {p.now.high * kInverse, p.now.low * kInverse};
    p.exponent += kScalingBits;
}

/// Returns the value, with a zero made positive. Throws "Overflow in NAME" where the value is not
/// finite.
[[nodiscard]] inline double Finite(const char* name, double value) {
    if (!std::isfinite(value)) throw ap::ap_error{std::string("Overflow in ") + name};
    return value + 0.0;
}

/// The value of `now`, with its power of two.
[[nodiscard]] inline double Finite(const char* name, const Neighbours& p) {
    const double value = ToDouble(p.now);
    return Finite(name, p.exponent == 0 ? value : std::ldexp(value, p.exponent));
}

/// The exponent of the power of two that scales a tiny x to 2^-100, 0 for any other x. At such x a
/// polynomial of odd degree is linear and one of even degree constant, so that scaling loses
/// nothing, and no step meets denormal numbers.
[[nodiscard]] inline int TinyBits(double x) {
    constexpr double kTiny = 0x1p-200;
    constexpr int kBitsBelow = 100;
    if (!(std::fabs(x) < kTiny) || x == 0) return 0;
    return -kBitsBelow - std::ilogb(x);
}

}  // namespace kalvex::specfun
