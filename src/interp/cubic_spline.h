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

/// End conditions: flag 0, a quadratic over the end piece (the value is not used); 1, the first
/// derivative is the value; 2, the second derivative is the value.
struct EndConditions {
    std::int32_t IBCBEG = 0;
    double YBCBEG = 0.0;
    std::int32_t IBCEND = 0;
    double YBCEND = 0.0;
};

/// Fills YPP with the second derivatives at the knots; time in proportion to their number. Fails,
/// and leaves YPP empty, for fewer than two points, for knots that do not ascend, for other flags,
/// and for a pivot of zero (differences of knots that underflow).
Failure SPLINE_CUBIC_SET(std::span<const double> T, std::span<const double> Y,
                         const EndConditions& ends, std::vector<double>& YPP);

/// The spline and its two derivatives at t. Two points or more.
SplineValue SPLINE_CUBIC_VAL(const Knots& knots, std::span<const double> Y,
                             std::span<const double> YPP, double t);

}  // namespace kalvex
