// A value of the Gauss hypergeometric function and what is known of its error. Internal to the
// special functions.
#pragma once

#include <cmath>

#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

struct Value {
    DoubleDouble fraction;
    int exponent = 0;
    double loss = INFINITY;      // estimated error by what the last bit of x does
    double relative = INFINITY;  // the same by the value
    double slope = 0;            // x times the derivative, of the fraction
};

inline constexpr double kGoodEnough = 0x1p-58;
inline constexpr double kBearable = 0x1p-57;

inline void KeepBetter(Value& best, const Value& other) {
    if (other.loss < best.loss) best = other;
}

/// ln(1-x).
[[nodiscard]] DoubleDouble LogOneLess(double x);

/// The function from that of the form, `sum` at z.
[[nodiscard]] Value ValueOf(const Form& form, const HypergeometricPoint& sum, double x);

/// Of what the parameters are multiples if walks do not round them.
[[nodiscard]] double ParameterUnit(const HypergeometricParameters& p);

/// By the methods from the quickest up, until one is good enough. x is not 0, and at a pole in c
/// the polynomial is the one that a ends.
[[nodiscard]] Value BestValue(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
