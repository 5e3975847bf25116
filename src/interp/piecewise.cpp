// Each function finds the piece that holds t and evaluates its own formula there.
#include "interp/piecewise.h"

namespace kalvex {
namespace {

constexpr std::string_view kQuadratic = "SPLINE_QUADRATIC_VAL";

}  // namespace

double SPLINE_CONSTANT_VAL(const Knots& knots, std::span<const double> YDATA, double t) {
    // KEEP: the step is just above a point's x, not at it, and the last x is never compared.
    // Otherwise the curves of stored settings would shift by one step.
    return YDATA[HolderOf(knots, t)];
}

SplineValue SPLINE_LINEAR_VAL(const Knots& knots, std::span<const double> YDATA, double t) {
    const std::size_t left = LeftOf(knots, t);
    const double start = knots.T[left];
    const double slope = (YDATA[left + 1] - YDATA[left]) / (knots.T[left + 1] - start);
    return {YDATA[left] + (t - start) * slope, slope, 0.0};
}

Failure SPLINE_QUADRATIC_VAL(const Knots& knots, std::span<const double> YDATA, double t,
                             SplineValue& result) {
    const std::size_t count = knots.T.size();
    if (count < 3) return FatalError(kQuadratic, {"  NDATA < 3."}, StringId::QuadraticTooFew);
    if (count % 2 == 0)
        return FatalError(kQuadratic, {"  NDATA must be odd."}, StringId::QuadraticEven);
    // A triple begins at a point with an odd number, which has an even index.
    const std::size_t left = LeftOf(knots, t) / 2 * 2;
    const double T1 = knots.T[left];
    const double T2 = knots.T[left + 1];
    const double T3 = knots.T[left + 2];
    if (T2 <= T1 || T3 <= T2)
        return FatalError(kQuadratic, {"  T2 <= T1 or T3 <= T2."}, StringId::QuadraticOrder);
    const double Y1 = YDATA[left];
    const double DIF1 = (YDATA[left + 1] - Y1) / (T2 - T1);
    const double DIF2 = ((YDATA[left + 2] - Y1) / (T3 - T1) - DIF1) / (T3 - T2);
    result = {Y1 + (t - T1) * (DIF1 + (t - T2) * DIF2), DIF1 + DIF2 * (2.0 * t - T1 - T2),
              2.0 * DIF2};
    return std::nullopt;
}

}  // namespace kalvex
