// Dawson's integral: the power series (DLMF 7.6.3 times exp(-x^2)) up to 1/2, polynomials in x and
// in 1/x up to 10, the asymptotic series (DLMF 7.12.1 continued to the imaginary axis) beyond.
#include <cmath>

#include "specfun/integrals/integral_coefficients.h"
#include "specfun/polynomial.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// x up to 1/2: the terms are those before times -2 x^2/(2k+1).
double SmallDawson(double x) {
    if (x < 1e-8) return x;
    const double q = -2 * x * x;
    double sum = 0;
    for (int k = 12; k >= 1; --k)
        sum = q / (2 * k + 1) * (1 + sum);
    return x + x * sum;
}

/// x of 10 or more: thirteen terms leave 27!!/200^14 < 2e-18.
double LargeDawson(double x) {
    if (x > 1e9) return 0.5 / x;
    const double r = 1 / (2 * x * x);
    double sum = 0;
    for (int k = 13; k >= 1; --k)
        sum = (2 * k - 1) * r * (1 + sum);
    return (0.5 + 0.5 * sum) / x;
}

double PositiveDawson(double x) {
    if (x < 0.5) return SmallDawson(x);
    if (x < 1) return Polynomial(kDawson0, x - kDawson0Middle);
    if (x < 1.75) return Polynomial(kDawson1, x - kDawson1Middle);
    if (x < 2.5) return Polynomial(kDawson2, x - kDawson2Middle);
    if (x < 3.5) return Polynomial(kDawson3, x - kDawson3Middle);
    if (x < 5) return Polynomial(kDawson4, 1 / x - kDawson4Middle) / x;
    if (x < 10) return Polynomial(kDawson5, 1 / x - kDawson5Middle) / x;
    return LargeDawson(x);
}

}  // namespace

double DawsonF(double x) {
    if (std::isnan(x)) return x;
    return std::copysign(PositiveDawson(std::fabs(x)), x);
}

}  // namespace kalvex::specfun
