// With y(k) the exact solution that starts where the computed one, Y(k), is meant to start, with
// the exact maps M(k) of the steps and with e(k) = Y(k) - y(k):
//   e(k) = M(k) e(k-1) + d(k),  |d(k)| <= eta A(k) |Y(k-1)|                                  (1)
// by magnitudes of components, where eta = kStepError and A(k) is M(k) composed of magnitudes: the
// errors of coefficients and of operations are relative to what is added up. (1) is exact, not of
// first order, since d(k) is what the step adds to the exact image of Y(k-1).
//
// Across: M^T J M = det M J with J y = (slope, -value), hence for X(k) = |e(k) x Y(k)|
//   X(k) <= |det M(k)| X(k-1) + |d(k) x Y(k)|,                                               (2)
// where nothing cancels: determinants are products. This is the error of the direction.
//
// Along: for any vectors v(k), r(k) = M(k)^T v(k) - v(k-1) being their residuals,
//   v(n).e(n) = v(0).e(0) + sum of v(k).d(k) + sum of r(k).e(k-1).                           (3)
// The v(k) are computed by the adjoint recurrence, backward from (1,0) or (0,1), in plain
// arithmetic, so that |r(k)| <= rho A(k)^T |v(k)|, rho = kPlainError (parts.h). In (3) e(k-1) is
// found from v(k-1).e(k-1) = Z and e(k-1) x Y(k-1), of which (2) knows a bound X:
//   |e(k-1)| <= (Z |Y(k-1)| + X |J v(k-1)|) / |v(k-1).Y(k-1)|,                               (4)
// and v(k).Y(k) is the same for all k but for errors of the same kind. So with
//   S = sum of |v(k)|^T A(k) |Y(k-1)|,  R = sum of X(k-1) |v(k)|^T A(k) |J v(k-1)|,
//   D = |v(n).Y(n)|,
// Z <= |v(0)|.|e(0)| + eta S + 2 rho (Z S + R) / D, where the 2 allows for v(k).Y(k) down to D/2,
// which 4 rho S <= D implies (eta is less than rho). The same bounds Z by twice the rest. Products
// of blocks of steps obey (1) with an A of their own (blocks.cpp).
//
// Higham, Accuracy and Stability of Numerical Algorithms, 3.1 to 3.3 (bounds of single operations)
// and 3.8 (running error analysis); the adjoint recurrence is that of Wimp, Computation with
// Recurrence Relations, 1984.
#include "specfun/hypergeometric/running_error.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

struct Pair {
    double value;
    double slope;
};

Pair AppliedTo(const MapOf<double>& map, Pair at) {
    return {map.valueOfValue * at.value + map.valueOfSlope * at.slope,
            map.slopeOfValue * at.value + map.slopeOfSlope * at.slope};
}

Pair TransposeAppliedTo(const MapOf<double>& map, Pair at) {
    return {map.valueOfValue * at.value + map.slopeOfValue * at.slope,
            map.valueOfSlope * at.value + map.slopeOfSlope * at.slope};
}

Pair Magnitude(Pair at) {
    return {std::fabs(at.value), std::fabs(at.slope)};
}

double Dot(Pair a, Pair b) {
    return a.value * b.value + a.slope * b.slope;
}

double Permanent(Pair a, Pair b) {
    return a.value * b.slope + a.slope * b.value;
}

void Multiply(MapOf<double>& map, double by) {
    for (double* entry :
         {&map.valueOfValue, &map.valueOfSlope, &map.slopeOfValue, &map.slopeOfSlope})
        *entry *= by;
}

}  // namespace

void Reserve(RunningError& error, std::size_t more) {
    if (error.steps.size() < error.count + more) error.steps.resize(error.count + more);
}

void Record(const TraceOf<double>& trace, const Column<DoubleDouble>& before,
            const Column<DoubleDouble>& after, RunningError& error) {
    const Pair added = AppliedTo(trace.bound, Magnitude({before.value.high, before.slope.high}));
    const double factor = std::fabs(trace.determinant);
    error.steps[error.count] = {trace.map, trace.bound, before.value.high, before.slope.high,
                                error.across};
    ++error.count;
    error.across = factor * error.across +
                   kStepError * Permanent(added, Magnitude({after.value.high, after.slope.high}));
}

void Rescale(double power, RunningError& error) {
    RecordedStep& last = error.steps[error.count - 1];
    Multiply(last.map, power);
    Multiply(last.bound, power);
    error.across *= power * power;
}

double ErrorOfValue(const RunningError& error, const Column<DoubleDouble>& at) {
    constexpr double kSmall = 0x1p-20;  // chosen: D would lose 20 bits of the 48 of 4 rho S <= D
    const double value = std::fabs(at.value.high);
    const double slope = std::fabs(at.slope.high);
    const bool vanishes = value < kSmall * slope;  // next to a zero D is that of the slope
    Pair adjoint = vanishes ? Pair{0, 1} : Pair{1, 0};
    double sum = 0;
    double ofDirection = 0;
    for (std::size_t k = error.count; k-- > 0;) {
        const RecordedStep& step = error.steps[k];
        const Pair weights = TransposeAppliedTo(step.bound, Magnitude(adjoint));
        sum += Dot(weights, Magnitude({step.value, step.slope}));
        adjoint = TransposeAppliedTo(step.map, adjoint);
        ofDirection += step.across * Permanent(weights, Magnitude(adjoint));
    }
    const double size = vanishes ? slope : value;
    // the factors 4 and 2 here and below are those of the proof above
    if (!(4 * kPlainError * sum <= size)) return INFINITY;
    const double own = Dot(Magnitude(adjoint), {error.value, error.slope}) + kStepError * sum +
                       2 * kPlainError * ofDirection / size;
    const double all = 2 * own;
    return vanishes ? (all * value + error.across) / slope : all;
}

}  // namespace kalvex::specfun
