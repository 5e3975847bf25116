// A method that is set up, as a record: what the rows of the methods fill and read, and what those
// who use a method look at.
#pragma once

#include <span>
#include <vector>

#include "interp/approx_parameters.h"
#include "interp/cubic_spline.h"
#include "interp/diagnostic.h"
#include "interp/divided_differences.h"
#include "interp/knots.h"
#include "interp/lagrange.h"
#include "interp/least_squares.h"

namespace kalvex {

/// A method that is set up. `x` and `y` are views of the table, which must outlive it. The fields
/// below `stopped` are filled by the methods that use them.
struct Approximation {
    ApproxParameters parameters;
    std::span<const double> x;
    std::span<const double> y;
    bool hasValues = false;  ///< false: every value is undefined
    Failure failure;         ///< of the set-up or, later, of an evaluation
    bool stopped = false;    ///< by its progress function
    Knots knots;             ///< of piecewise and parametric methods
    LeastSquaresFit fit;
    std::vector<double> coefficients;  ///< cubic spline: second derivatives; Hermite: its pieces
    DifferenceTable differences;
    LagrangeForm lagrange;
};

}  // namespace kalvex
