// The least-squares polynomial by polynomials that are orthogonal over the data.
//
// P(0) = 1, P(k+1) = (x - B(k+1)) P(k) - C(k+1) P(k-1), and the value is the sum of D(k) P(k). The
// ill-conditioned linear system in the powers of x is never formed: the relative error of twenty
// terms over a thousand points is that of a few roundings. For very uneven points (x over several
// decades, or an outlier) the recurrence loses most of its digits. Fits of up to kTwiceOperations
// are therefore computed in double-double arithmetic, which suffices for all but extreme tables: 15
// terms over 15 points, one of them a hundred times as far out, keep four digits; 13 terms over six
// decades keep none. Source: G. E. Forsythe, Generation and Use of Orthogonal Polynomials for
// Data-Fitting with a Digital Computer, J. Soc. Indust. Appl. Math. 5 (1957), 74-88.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "interp/diagnostic.h"
#include "interp/work.h"

namespace kalvex {

/// The fit in the variable x * scale. The scale is a power of two, so that multiplying by it is
/// exact; it keeps the polynomials from overflowing.
struct LeastSquaresFit {
    double scale = 1.0;
    std::vector<double> B;  ///< one per term
    std::vector<double> C;
    std::vector<double> D;
    std::vector<double> lowB;  ///< low parts of B; empty for a fit in double precision
    std::vector<double> lowC;
    std::vector<double> lowD;
};

/// Points times terms up to which a fit is computed in double-double arithmetic.
inline constexpr double kTwiceOperations = 100'000.0;

/// Fits NTERMS coefficients to the points (X, F) with weights W; an empty W means that all are 1.
/// Fails, and leaves the fit empty, first when there are fewer different abscissas than terms, then
/// when a weight is not positive; each of these failures has a message box of its own. Also fails
/// when points times terms are more than kMostOperations. Takes time in proportion to points times
/// terms. Stopped work leaves the fit empty.
[[nodiscard]] Failure LEAST_SET(std::span<const double> X, std::span<const double> F,
                                std::span<const double> W, std::int32_t NTERMS,
                                LeastSquaresFit& fit, Work& work);

/// An estimate of the operations that LEAST_SET will take.
[[nodiscard]] double LeastSetCost(std::size_t points, std::int32_t NTERMS);

/// The value at x; 0 for an empty fit.
[[nodiscard]] double LEAST_VAL(const LeastSquaresFit& fit, double x);

}  // namespace kalvex
