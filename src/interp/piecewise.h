// Piecewise constant, linear and quadratic functions through a table of points.
//
// All of them take the points in the order of the table and continue their end pieces outside it.
// Abscissas are checked only where a function says so: elsewhere two equal neighbours divide by
// zero, and the value is infinite or not-a-number. The formulas are evaluated as written, in double
// precision with one rounding per operation.
#pragma once

#include <span>

#include "interp/diagnostic.h"
#include "interp/knots.h"

namespace kalvex {

/// A value with its derivatives; a derivative that a method does not compute is 0.
struct SplineValue {
    double value = 0.0;
    double first = 0.0;
    double second = 0.0;
};

/// The y of the first point whose x is not below t; the last point is not asked, its y is the value
/// when no other point fits. So each y holds on the interval that ends at its x. Needs one point or
/// more.
[[nodiscard]] double SPLINE_CONSTANT_VAL(const Knots& knots, std::span<const double> YDATA,
                                         double t);

/// The straight line through the two points of the piece, and its slope. Needs two points or more.
[[nodiscard]] SplineValue SPLINE_LINEAR_VAL(const Knots& knots, std::span<const double> YDATA,
                                            double t);

/// The parabola through the triple of points (1,2,3), (3,4,5), ... that holds the piece of t, and
/// its derivative, in divided differences. Fails for fewer than three points, for an even number of
/// points, and when the abscissas of that triple do not ascend; other triples are not checked.
[[nodiscard]] Failure SPLINE_QUADRATIC_VAL(const Knots& knots, std::span<const double> YDATA,
                                           double t, SplineValue& result);

}  // namespace kalvex
