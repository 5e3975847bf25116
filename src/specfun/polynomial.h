// Evaluation of the polynomials that scripts/make-airy-coefficients makes.
#pragma once

#include <cstddef>

namespace kalvex::specfun {

/// c[1] + c[2] h + c[3] h^2 + ... by Horner's rule; c[0] is what c[1] as a double leaves of the
/// constant coefficient. The error is little more than the rounding of the last sum.
template <std::size_t N>
double Polynomial(const double (&c)[N], double h) {
    double sum = c[N - 1];
    for (std::size_t i = N - 2; i >= 2; --i)
        sum = c[i] + h * sum;
    return c[1] + (h * sum + c[0]);
}

}  // namespace kalvex::specfun
