// Dawson's integral: up to 1/2 the power series (DLMF 7.6.3 times exp(-x^2)), up to 16 polynomials
// on pieces of an octave, beyond that the asymptotic series (DLMF 7.12.1, continued to the
// imaginary axis).
#include <cmath>

#include "specfun/integrals/dawson_pieces.h"
#include "specfun/integrals/turning.h"
#include "specfun/piecewise.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// For x up to 1/2. Each term is the one before it times -2 x^2/(2k+1).
double SmallDawson(double x) {
    if (x < 1e-8) return x;
    const double q = -2 * x * x;
    double sum = 0;
    for (int k = 12; k >= 1; --k)
        sum = q / (2 * k + 1) * (1 + sum);
    return x + x * sum;
}

/// For x of 16 or more. After ten terms the next one is 21!!/512^11, below 3e-20.
double LargeDawson(double x) {
    if (x > 1e9) return 0.5 / x;
    const DoubleDouble inverse = Inverse({x, 0});
    const double r = 0.5 * inverse.high * inverse.high;
    double sum = 0;
    for (int k = 10; k >= 1; --k)
        sum = (2 * k - 1) * r * (1 + sum);
    return 0.5 * (inverse.high + (inverse.low + inverse.high * sum));
}

double PositiveDawson(double x) {
    if (x < 0.5) return SmallDawson(x);
    if (x < 16) return ToDouble(AtPiece(kDawson, {x, 0}));
    return LargeDawson(x);
}

}  // namespace

KALVEX_WITH_FMA
double DawsonF(double x) {
    if (std::isnan(x)) return x;
    return std::copysign(PositiveDawson(std::fabs(x)), x);
}

}  // namespace kalvex::specfun
