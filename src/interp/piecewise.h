// Piecewise constant, linear and quadratic functions through a table of points.
//
// All of them take the points in the order of the table and continue their end pieces outside it.
// Equal abscissas are not looked for where nothing is said about them: they divide by zero and the
// value is infinite or not-a-number. Values are those of the formulas in double precision, one
// rounding per operation.
#pragma once

#include <span>

#include "interp/diagnostic.h"
#include "interp/knots.h"

namespace kalvex {

/// A value with its derivatives; those that a method does not give are 0.
struct SplineValue {
    double value = 0.0;
    double first = 0.0;
    double second = 0.0;
};

/// The y of the first point (the last one left out) whose x is not below t, otherwise the last y:
/// a y holds on the stretch that ends at its x. One point or more.
double SPLINE_CONSTANT_VAL(const Knots& knots, std::span<const double> YDATA, double t);

/// The straight line through the two points of the piece, and its slope. Two points or more.
SplineValue SPLINE_LINEAR_VAL(const Knots& knots, std::span<const double> YDATA, double t);

/// The parabola through the triple of points (1,2,3), (3,4,5), ... that holds the piece of t, and
/// its derivative, in divided differences. Fails for fewer than three points, an even number of
/// points, and a triple whose abscissas do not ascend; other triples are not looked at.
Failure SPLINE_QUADRATIC_VAL(const Knots& knots, std::span<const double> YDATA, double t,
                             SplineValue& result);

}  // namespace kalvex
