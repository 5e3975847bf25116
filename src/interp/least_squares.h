// The least-squares polynomial by polynomials that are orthogonal over the data.
//
// P(0) = 1, P(k+1) = (x - B(k+1)) P(k) - C(k+1) P(k-1), and the value is the sum of D(k) P(k). No
// linear system is formed, so the accuracy does not suffer from the powers of x: twenty terms over
// a thousand points keep a relative error of some rounding errors. Very uneven points (x over
// several decades, an outlier) cost the recurrence most of its digits; up to kTwiceOperations it is
// carried in two doubles, which meets all but the worst of them: 15 terms over 15 points, one of
// them a hundred times as far out, keep four digits, 13 terms over six decades none. Source: G. E.
// Forsythe, Generation and Use of Orthogonal Polynomials for Data-Fitting with a Digital Computer,
// J. Soc. Indust. Appl. Math. 5 (1957), 74-88.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "interp/diagnostic.h"
#include "interp/work.h"

namespace kalvex {

/// The fit in the variable x * scale. The scale is a power of two, which changes no digit but keeps
/// the polynomials from overflowing.
struct LeastSquaresFit {
    double scale = 1.0;
    std::vector<double> B;  ///< one per term
    std::vector<double> C;
    std::vector<double> D;
    std::vector<double> lowB;  ///< what a double of B leaves over; empty for a fit in plain doubles
    std::vector<double> lowC;
    std::vector<double> lowD;
};

/// Points times terms up to which a fit is carried in two doubles per number.
inline constexpr double kTwiceOperations = 100'000.0;

/// Fits NTERMS coefficients to the points (X, F) with weights W; an empty W means that all are 1.
/// Fails, and leaves the fit empty, when there are fewer different abscissas than terms and when a
/// weight is not positive; both have a box of their own. Fails, without one, when points
/// times terms are more than kMostOperations. Time in proportion to points times terms;
/// stopped work leaves the fit empty.
Failure LEAST_SET(std::span<const double> X, std::span<const double> F, std::span<const double> W,
                  std::int32_t NTERMS, LeastSquaresFit& fit, Work& work);

/// What LEAST_SET will spend, in operations.
double LeastSetCost(std::size_t points, std::int32_t NTERMS);

/// The value at x; 0 for an empty fit.
double LEAST_VAL(const LeastSquaresFit& fit, double x);

}  // namespace kalvex
