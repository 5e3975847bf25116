// Evaluation of the polynomials that scripts/make-airy-coefficients makes.
#pragma once

#include <cstddef>

namespace kalvex::specfun {

/// c[1] + c[2] h + c[3] h^2 + ... by Horner's rule. c[0] is the rounding error of c[1], the
/// constant coefficient. The error of the result is little more than the rounding error of the last
/// addition.
template <std::size_t N>
[[nodiscard]] double Polynomial(const double (&c)[N], double h) {
    double sum = c[N - 1];
    for (std::size_t i = N - 2; i >= 2; --i)
        sum = c[i] + h * sum;
    return c[1] + (h * sum + c[0]);
}

}  // namespace kalvex::specfun
