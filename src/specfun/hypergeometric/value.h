// A value of the hypergeometric function with a bound of its error. Internal to the special
// functions.
#pragma once

#include <cmath>

#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// A value, fraction times 2^exponent, and the bound of its error.
struct Value {
    DoubleDouble fraction;
    int exponent = 0;
    double loss = INFINITY;      // error / (|fraction| + |slope|)
    double relative = INFINITY;  // error / |fraction|
    double slope = 0;            // x times the derivative, as a multiple of 2^exponent
};

/// A value whose loss is below this is taken, and no other method is tried: 1/32 of a unit in the
/// last place of a double.
inline constexpr double kGoodEnough = 0x1p-58;

/// The best value found is delivered if its loss is below this, 1/16 of a unit in the last place.
/// Else the call fails.
inline constexpr double kBearable = 0x1p-57;

/// The message of a value out of range or not known to enough digits.
inline constexpr char kOverflow[] = "Overflow in Hypergeometric2F1";

inline void KeepBetter(Value& best, const Value& other) {
    if (other.loss < best.loss) best = other;
}

/// ln(1-x).
[[nodiscard]] DoubleDouble LogOneLess(double x);

/// The function at x, from the sum of the series of a form of it.
[[nodiscard]] Value ValueOf(const Form& form, const HypergeometricPoint& sum, double x);

}  // namespace kalvex::specfun
