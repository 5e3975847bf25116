// The interpolating cubic spline with a choice of end conditions, by its second derivatives.
//
// Source: the tridiagonal system for the second derivatives, as in C. de Boor, A Practical Guide
// to Splines (Springer 1978), chapter IV. It is diagonally dominant apart from the end rows, so
// elimination without pivoting is stable.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "interp/piecewise.h"

namespace kalvex {

/// A flag and a value for each end. Flag 0: the spline is a quadratic on the end piece, the value
/// is not used. Flag 1: the first derivative at the end is the value. Flag 2: the second derivative
/// is.
struct EndConditions {
    std::int32_t IBCBEG = 0;
    double YBCBEG = 0.0;
    std::int32_t IBCEND = 0;
    double YBCEND = 0.0;
};

/// Fills YPP with the second derivatives at the knots, in time proportional to their number. Fails,
/// and leaves YPP empty, for fewer than two points, for knots that do not ascend, for a flag that
/// is not 0, 1 or 2, and for a pivot of zero, which appears when differences of knots underflow.
[[nodiscard]] Failure SPLINE_CUBIC_SET(std::span<const double> T, std::span<const double> Y,
                                       const EndConditions& ends, std::vector<double>& YPP);

/// The spline and its two derivatives at t. Needs two points or more.
[[nodiscard]] SplineValue SPLINE_CUBIC_VAL(const Knots& knots, std::span<const double> Y,
                                           std::span<const double> YPP, double t);

}  // namespace kalvex
