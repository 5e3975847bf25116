// Power series that the trigonometric and the hyperbolic integrals share: with q = -x^2 the former,
// with q = x^2 the latter (DLMF 6.6.5, 6.6.6).
#pragma once

#include <cmath>

#include "specfun/precision/double_double.h"

namespace kalvex::specfun {

/// Si(x)/x - 1 or Shi(x)/x - 1: the sum of q^k/((2k+1)(2k+1)!) for |q| up to 4, error 1e-17.
inline double SineIntegralSeries(double q) {
    double sum = 0;
    constexpr double kTerms[] = {18,
                                 600,
                                 35280,
                                 3265920,
                                 439084800,
                                 80951270400,
                                 19615115520000,
                                 6046686277632000,
                                 2.311256907767808e+18,
                                 1.0729097856058982e+21,
                                 5.9459638499435449e+23};
    for (int k = 10; k >= 0; --k)
        sum = q * (1 / kTerms[k] + sum);
    return sum;
}

/// Ci or Chi for x from above 0 to 1: Euler's constant, the logarithm and the sum of
/// q^k/(2k (2k)!), added with what the first sum leaves.
inline double CosineIntegralNearZero(double x, double q) {
    double sum = 0;
    constexpr double kTerms[] = {4,        96,         4320,          322560,
                                 36288000, 5748019200, 1220496076800, 334764638208000};
    for (int k = 7; k >= 0; --k)
        sum = q * (1 / kTerms[k] + sum);
    const DoubleDouble constant = TwoSum(std::log(x), kEulerGamma.high);
    return constant.high + (constant.low + kEulerGamma.low + sum);
}

}  // namespace kalvex::specfun
