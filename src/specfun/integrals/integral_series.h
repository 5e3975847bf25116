// Power series that the trigonometric integrals, with q = -x^2, and the hyperbolic integrals, with
// q = x^2, have in common (DLMF 6.6.5, 6.6.6).
#pragma once

#include "numbers/double_double.h"
#include "numbers/quick_log_exp.h"

namespace kalvex::specfun {

/// Si(x)/x - 1 or Shi(x)/x - 1: seven terms of the sum of q^k/((2k+1)(2k+1)!), for |q| up to 1/4.
[[nodiscard]] inline double SineIntegralSeries(double q) {
    double sum = 0;
    constexpr double kTerms[] = {18, 600, 35280, 3265920, 439084800, 80951270400, 19615115520000};
    for (int k = 6; k >= 0; --k)
        sum = q * (1 / kTerms[k] + sum);
    return sum;
}

/// Ci or Chi for 0 < x <= 1/2: the logarithm, Euler's constant and six terms of the sum of q^k/(2k
/// (2k)!).
[[nodiscard]] inline double CosineIntegralNearZero(double x, double q) {
    double sum = 0;
    constexpr double kTerms[] = {4, 96, 4320, 322560, 36288000, 5748019200};
    for (int k = 5; k >= 0; --k)
        sum = q * (1 / kTerms[k] + sum);
    return ToDouble(QuickLog(x) + kEulerGamma + sum);
}

}  // namespace kalvex::specfun
