// The interpolating polynomial in Lagrange's form.
//
// value(x) = sum over i of y[i] * product over j != i of (x - x[j]) / (x[i] - x[j]), products from
// 1 in increasing j, the sum in increasing i. Tables of up to kLagrangeDirect points are evaluated
// exactly so. Larger ones would cost the square of their size per value; they are evaluated as
// product(x - x[j]) * sum(w[i] y[i] / (x - x[i])) with w[i] = 1 / product(x[i] - x[j]) (the first,
// backward stable barycentric form: J.-P. Berrut, L. N. Trefethen, Barycentric Lagrange
// Interpolation, SIAM Review 46 (2004), 501-517; N. J. Higham, The Numerical Stability of
// Barycentric Lagrange Interpolation, IMA J. Numer. Anal. 24 (2004), 547-556). Both forms have the
// error bound of a few n rounding errors of sum |y[i] l_i(x)|, so they agree as well as either
// agrees with the polynomial.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "interp/diagnostic.h"
#include "interp/work.h"

namespace kalvex {

inline constexpr std::size_t kLagrangeDirect = 32;

/// A number factor * 2^exponent that neither overflows nor underflows.
struct ScaledNumber {
    double factor = 0.0;
    std::int64_t exponent = 0;
};

/// A table prepared for evaluation; the spans must outlive it.
struct LagrangeForm {
    std::span<const double> x;
    std::span<const double> y;
    bool degenerate = false;            ///< two abscissas are equal, or one is not finite
    std::vector<std::size_t> order;     ///< the points by ascending x, of a large table
    std::vector<ScaledNumber> probes;   ///< weights of a few points, made for the first value
    std::vector<ScaledNumber> weights;  ///< of all points, made when the first value needs them
};

/// Prepares a table. Fails when the square of the number of points is more than kMostOperations,
/// that is, for more than 70,710 points.
[[nodiscard]] Failure LAGRANGE_SET(std::span<const double> x, std::span<const double> y,
                                   LagrangeForm& form);

/// The value at t. At a data point it is exactly the y of the point; for a table without points it
/// is 0. It is not finite when two abscissas are equal (a division by zero) or when a term
/// overflows. In a large table the first value that needs the weights takes time in proportion to
/// the square of the number of points, every other value in proportion to their number. Stopped
/// work gives not-a-number.
[[nodiscard]] double LAGRANGE_VAL(LagrangeForm& form, double t, Work& work);

}  // namespace kalvex
