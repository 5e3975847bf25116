// Products and quotients of gamma functions to some 60 bits, however large they are. Internal to
// the special functions.
#pragma once

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// A number and a bound of its absolute error.
struct BoundedNumber {
    DoubleDouble value;
    double error = 0;
};

/// ln Gamma(x) for x above 0 and below 2^60.
[[nodiscard]] BoundedNumber LogGamma(DoubleDouble x);

/// factor e^log, the factor having a sign.
struct GammaProduct {
    BoundedNumber log;
    DoubleDouble factor = {1, 0};
    double ofFactor = 0;    // bound of its relative error
    bool vanishes = false;  // divided by a gamma function at a pole
    bool failed = false;    // multiplied by one
};

/// Multiplies the product by Gamma(x). x is not below -2^30.
void MultiplyByGamma(DoubleDouble x, GammaProduct& product);

/// Divides the product by Gamma(x). x is not below -2^30.
void DivideByGamma(DoubleDouble x, GammaProduct& product);

/// Multiplies the product by the power of a base whose logarithm is given.
void MultiplyByPower(DoubleDouble logOfBase, DoubleDouble exponent, GammaProduct& product);

}  // namespace kalvex::specfun
