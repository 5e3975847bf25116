// The dispatcher: one of thirteen methods, set up once from a table of points and evaluated at many
// abscissas.
//
// Everything outside the range of the points is the method's own continuation: the end pieces of
// the splines, the polynomials as they are. Methods 2 to 12 take time in proportion to the points
// for the set-up and (piecewise and parametric ones) to the logarithm of their number per value;
// 0 in proportion to points times terms; 1 and 12 up to the square of the points, which is why they
// tell their progress and can be stopped.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "interp/cubic_spline.h"
#include "interp/diagnostic.h"
#include "interp/divided_differences.h"
#include "interp/knots.h"
#include "interp/lagrange.h"
#include "interp/least_squares.h"
#include "interp/work.h"

namespace kalvex {

/// Codes as stored; the order of the method menu.
enum class ApproxMethod : std::int32_t {
    LeastSquares = 0,
    DividedDifferences = 1,
    BSplines = 2,
    BetaSplines = 3,
    OverhauserNonuniform = 4,
    OverhauserUniform = 5,
    Overhauser = 6,
    PiecewiseConstant = 7,
    PiecewiseLinear = 8,
    PiecewiseQuadratic = 9,
    PiecewiseCubic = 10,
    CubicHermite = 11,
    Largange = 12,
};

/// Method and parameters of a line. approx_val: number of terms (0), left boundary flag (10);
/// approx_val2: right flag (10); beta1, beta2: bias and tension (3), left and right value (10).
struct ApproxParameters {
    std::int32_t approx = 0;
    std::int32_t approx_val = 1;
    std::int32_t approx_val2 = 0;
    double beta1 = 1.0;
    double beta2 = 0.0;
};

/// A method that is set up. `x` and `y` are views of the table, which must outlive it.
struct Approximation {
    ApproxParameters parameters;
    std::span<const double> x;
    std::span<const double> y;
    bool hasValues = false;            ///< false: every value is undefined
    Failure failure;                   ///< of the set-up or, later, of an evaluation
    bool stopped = false;              ///< by its progress function
    Knots knots;                       ///< 2 to 11
    LeastSquaresFit fit;               ///< 0
    std::vector<double> coefficients;  ///< 10: second derivatives, 11: pieces
    DifferenceTable differences;       ///< 1
    LagrangeForm lagrange;             ///< 12
};

/// Sets a method up; x and y have the same length, in the order of the file. Where there are too
/// few points for the method to say anything (none for 0, 1, 7; fewer than two for 2, 3, 8), and
/// for a code that is none, no value is defined and nothing fails; 12 of no points is 0 everywhere.
Approximation SetUpApproximation(std::span<const double> x, std::span<const double> y,
                                 const ApproxParameters& parameters,
                                 const WorkProgress& progress = {});

/// Whether a fatal condition can still come up at an abscissa.
bool MayFailAtAValue(const Approximation& approximation);

/// The values at the abscissas, in any order; UndefinedValue where there is none. A fatal condition
/// that an abscissa runs into makes all values of the call undefined and stays in `failure`; work
/// that is stopped leaves the rest undefined. A division by zero shows as an infinity or
/// not-a-number.
void EvaluateApproximation(Approximation& approximation, std::span<const double> abscissas,
                           std::span<double> values, const WorkProgress& progress = {});

}  // namespace kalvex
