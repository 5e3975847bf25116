// Euler's integral as an integral over all numbers, and the trapezoidal rule for it:
// euler_integral.cpp has the notation. Internal to the special functions.
#pragma once

#include <cmath>

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// The exponents of g.
struct Integrand {
    DoubleDouble a;
    DoubleDouble b;
    DoubleDouble fromA;  // c-a
    DoubleDouble fromB;  // c-b
    DoubleDouble w;
    double z = 0;
};

/// 4 V/(1+V)^2, the hump of a factor of g.
[[nodiscard]] inline double Hump(double v) {
    const double sum = 1 + v;
    return 4 * (v / sum) / sum;
}

/// What a factor of g with the given exponent is more at v+id than at v, as a logarithm; half the
/// exponent, because the factor is the square root of 1 - square hump.
[[nodiscard]] inline double RiseOf(double exponent, double hump, double square) {
    return -0.5 * exponent * std::log1p(-square * hump);
}

/// The step, how far from the real axis g is bounded, sin(d/2)^2, and the e-foldings by which the
/// error of the rule is less than that bound.
struct Rule {
    double h = 0;
    double d = 0;
    double square = 0;
    double gain = 0;
};

/// V at the peak of g.
[[nodiscard]] double PeakOf(const Integrand& f);

/// The longest step for which the error of the rule is small enough, if |g(v+id)| is not above
/// e^rise times the peak of g but where it is expected to be.
[[nodiscard]] Rule RuleFor(const Integrand& f, double peak, double rise);

}  // namespace kalvex::specfun
