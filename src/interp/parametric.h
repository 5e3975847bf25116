// Splines that take the points as control values of a piece's own parameter.
//
// On the piece from T(LEFT) to T(RIGHT) the parameter is u = (t - T(LEFT)) / (T(RIGHT) - T(LEFT)),
// between 0 and 1 on the piece and outside that range where an end piece is continued. Abscissas
// are checked only where a function says so: elsewhere two equal neighbours divide by zero, and the
// value is infinite or not-a-number. Sources: B. A. Barsky, The Beta-spline (Ph.D. thesis,
// University of Utah 1981); A. W. Overhauser, Analytic Definition of Curves and Surfaces by
// Parabolic Blending (Ford Motor Company, Technical Report SL 68-40, 1968); E. Catmull, R. Rom, A
// Class of Local Interpolating Splines, in: Computer Aided Geometric Design (Academic Press 1974),
// 317-326.
#pragma once

#include <cstdint>
#include <span>

#include "interp/diagnostic.h"
#include "interp/knots.h"

namespace kalvex {

/// The uniform cubic B spline with the y as control values. It smooths: in general it does not go
/// through the points. A control value that is missing beyond an end is extrapolated linearly from
/// the two nearest. Needs two points or more.
[[nodiscard]] double SPLINE_B_VAL(const Knots& knots, std::span<const double> YDATA, double t);

/// The cubic beta spline with bias BETA1 (1: none) and tension BETA2 (0: none); its ends are those
/// of the B spline. At a joint the slope on the right is BETA1 times the slope on the left, each
/// with respect to the parameter of its own piece. BETA1 = 1, BETA2 = 0 gives the B spline, bit for
/// bit. A large BETA2 pulls the curve to the points and leaves a smooth step between neighbours.
/// The weights are divided by their sum 2 B1^3 + 4 B1^2 + 4 B1 + B2 + 2; when that is 0, the value
/// is infinite or not-a-number. Needs two points or more.
[[nodiscard]] double SPLINE_BETA_VAL(double BETA1, double BETA2, const Knots& knots,
                                     std::span<const double> YDATA, double t);

/// The interpolating spline whose slope at an inner point is half the difference between the next
/// and the previous y, as if all abscissas were equally spaced. The first and the last piece are
/// the parabolas in u through the three points at that end. Fails for fewer than three points.
[[nodiscard]] Failure SPLINE_OVERHAUSER_UNI_VAL(const Knots& knots, std::span<const double> YDATA,
                                                double t, double& YVAL);

/// The same for the real spacing of the abscissas: the slope at an inner point is that of the
/// parabola through it and its two neighbours. The first and the last piece are the parabolas
/// through the three points at that end. Fails for fewer than three points.
[[nodiscard]] Failure SPLINE_OVERHAUSER_NONUNI_VAL(const Knots& knots,
                                                   std::span<const double> YDATA, double t,
                                                   double& YVAL);

/// Checks the index of a piece for SPLINE_OVERHAUSER_NONUNI_VAL, counted from 1. Fails unless
/// 0 < LEFT < NDATA.
[[nodiscard]] Failure CheckOverhauserPiece(std::int64_t LEFT, std::int64_t NDATA);

/// Checks a table for SPLINE_OVERHAUSER_VAL: first that the abscissas are strictly ascending, then
/// that there are three points or more.
[[nodiscard]] Failure CheckOverhauser(std::span<const double> TDATA);

/// Blends two parabolas with weights that are linear in t: one goes through the two points of the
/// piece and the point before them, the other through the two points and the point after them. On
/// the first and the last piece only one of them exists. YDATA holds NDIM numbers per point, YVAL
/// receives NDIM. The caller has checked the table by CheckOverhauser, once for all t. The result
/// equals that of SPLINE_OVERHAUSER_NONUNI_VAL up to rounding.
[[nodiscard]] Failure SPLINE_OVERHAUSER_VAL(std::int32_t NDIM, const Knots& knots,
                                            std::span<const double> YDATA, double t,
                                            std::span<double> YVAL);

/// The parabola through the points LEFT, LEFT + 1, LEFT + 2 (1-based) at t, for each of NDIM
/// dimensions. Fails for NDIM below 1, for a LEFT outside 1 .. NDATA - 2, and for abscissas of the
/// three points that do not ascend.
[[nodiscard]] Failure PARABOLA_VAL2(std::int32_t NDIM, std::span<const double> TDATA,
                                    std::span<const double> YDATA, std::int32_t LEFT, double t,
                                    std::span<double> YVAL);

}  // namespace kalvex
