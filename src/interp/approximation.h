// An approximation method, set up once from a table of points and evaluated at many abscissas.
//
// Outside the range of the points a method goes on as it is: splines by their end pieces,
// polynomials unchanged. Piecewise and parametric methods take time in proportion to the points for
// the set-up and to the logarithm of their number per value, least squares in proportion to points
// times terms. The interpolating polynomials take up to the square of the points: they tell their
// progress and can be stopped.
#pragma once

#include <span>

#include "interp/approximation_record.h"
#include "interp/work.h"

namespace kalvex {

/// Sets a method up; x and y have the same length, in the order of the file. When there are fewer
/// points than the method's row requires, and when no method has the number `parameters.approx`,
/// all values are undefined and there is no failure. Lagrange's polynomial of no points is 0.
[[nodiscard]] Approximation SetUpApproximation(std::span<const double> x, std::span<const double> y,
                                               const ApproxParameters& parameters,
                                               const WorkProgress& progress = {});

/// Whether the method can still fail when it is evaluated at an abscissa.
[[nodiscard]] bool MayFailAtAValue(const Approximation& approximation);

/// The values at the abscissas, in any order; UndefinedValue where there is none. When the method
/// fails at an abscissa, all values of the call are undefined and the reason is in `failure`. When
/// the work is stopped, the values that were not reached are undefined. A division by zero shows as
/// an infinity or not-a-number.
void EvaluateApproximation(Approximation& approximation, std::span<const double> abscissas,
                           std::span<double> values, const WorkProgress& progress = {});

}  // namespace kalvex
