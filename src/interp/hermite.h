// The shape-preserving piecewise cubic Hermite interpolant: where the data rise it rises, where
// they fall it falls, and its maxima and minima are at data points.
//
// Sources: F. N. Fritsch, R. E. Carlson, Monotone Piecewise Cubic Interpolation, SIAM J. Numer.
// Anal. 17 (1980), 238-246; F. N. Fritsch, J. Butland, A Method for Constructing Local Monotone
// Piecewise Cubic Interpolants, SIAM J. Sci. Stat. Comput. 5 (1984), 300-304 (Brodlie's weights).
#pragma once

#include <span>
#include <vector>

#include "interp/piecewise.h"

namespace kalvex {

/// Fills D with estimates of the derivatives at the points, in time proportional to their number.
/// Fails for fewer than two points and for abscissas that do not ascend.
[[nodiscard]] Failure SPLINE_PCHIP_SET(std::span<const double> X, std::span<const double> F,
                                       std::vector<double>& D);

/// The coefficients of the pieces. Each point has four, for the powers 0 to 3 of the distance from
/// it. No piece begins at the last point, so its last two are 0.
[[nodiscard]] std::vector<double> SPLINE_HERMITE_SET(std::span<const double> T,
                                                     std::span<const double> Y,
                                                     std::span<const double> YP);

/// Value and derivatives at t. Needs two points or more.
[[nodiscard]] SplineValue SPLINE_HERMITE_VAL(const Knots& knots, std::span<const double> C,
                                             double t);

}  // namespace kalvex
