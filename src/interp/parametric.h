// Splines that take the points as control values of a piece's own parameter.
//
// On the piece from T(LEFT) to T(RIGHT) the parameter is u = (t - T(LEFT)) / (T(RIGHT) - T(LEFT)),
// 0 to 1 inside, beyond it where an end piece is continued. Equal neighbours divide by zero where
// nothing else is said. Sources: B. A. Barsky, The Beta-spline (Ph.D. thesis, University of Utah
// 1981); A. W. Overhauser, Analytic Definition of Curves and Surfaces by Parabolic Blending (Ford
// Motor Company, Technical Report SL 68-40, 1968); E. Catmull, R. Rom, A Class of Local
// Interpolating Splines, in: Computer Aided Geometric Design (Academic Press 1974), 317-326.
#pragma once

#include <cstdint>
#include <span>

#include "interp/diagnostic.h"
#include "interp/knots.h"

namespace kalvex {

/// The uniform cubic B spline with the y as control values; it smooths, it does not go through the
/// points. A missing control value beyond an end is the linear extension of the two nearest. Two
/// points or more.
double SPLINE_B_VAL(const Knots& knots, std::span<const double> YDATA, double t);

/// The cubic beta spline with bias BETA1 (1: none) and tension BETA2 (0: none), ends as above. The
/// slope behind a joint is BETA1 times the one before it, both by their own parameter. BETA1 = 1,
/// BETA2 = 0 is the B spline, bit for bit; a large BETA2 draws the curve into the points, with a
/// smooth step between neighbours. Weights are divided by 2 B1^3 + 4 B1^2 + 4 B1 + B2 + 2; where
/// that is 0 there is no value. Two points or more.
double SPLINE_BETA_VAL(double BETA1, double BETA2, const Knots& knots,
                       std::span<const double> YDATA, double t);

/// The interpolating spline whose slope at an inner point is half the difference of its neighbours,
/// as if all abscissas were equally spaced; the first and the last piece are parabolas in u through
/// the three end points. Fails for fewer than three points.
Failure SPLINE_OVERHAUSER_UNI_VAL(const Knots& knots, std::span<const double> YDATA, double t,
                                  double& YVAL);

/// The same with the real spacing: the slope at an inner point is that of the parabola through it
/// and its neighbours; the first and the last piece are the parabolas through the three end points.
/// Fails for fewer than three points.
Failure SPLINE_OVERHAUSER_NONUNI_VAL(const Knots& knots, std::span<const double> YDATA, double t,
                                     double& YVAL);

/// The piece that SPLINE_OVERHAUSER_NONUNI_VAL works on, 1-based: fails outside 0 < LEFT < NDATA.
Failure CheckOverhauserPiece(std::int64_t LEFT, std::int64_t NDATA);

/// What SPLINE_OVERHAUSER_VAL wants: strictly ascending abscissas, three points, in this order.
Failure CheckOverhauser(std::span<const double> TDATA);

/// The blend of two parabolas: through the points before and at the piece, and at and behind it,
/// with weights linear in t; on the first and the last piece only one exists. YDATA holds NDIM
/// numbers per point, YVAL receives NDIM. The table has to pass CheckOverhauser, which is not
/// repeated for each t. Equals SPLINE_OVERHAUSER_NONUNI_VAL up to rounding.
Failure SPLINE_OVERHAUSER_VAL(std::int32_t NDIM, const Knots& knots, std::span<const double> YDATA,
                              double t, std::span<double> YVAL);

/// The parabola through the points LEFT, LEFT + 1, LEFT + 2 (1-based) at t, for each of NDIM
/// dimensions. Fails for NDIM below 1, for a LEFT outside 1 .. NDATA - 2, and for abscissas of the
/// three points that do not ascend.
Failure PARABOLA_VAL2(std::int32_t NDIM, std::span<const double> TDATA,
                      std::span<const double> YDATA, std::int32_t LEFT, double t,
                      std::span<double> YVAL);

}  // namespace kalvex
