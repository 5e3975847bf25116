// Each row of the tridiagonal system relates the second derivatives at a knot and its two
// neighbours. Forward elimination removes the entries below the diagonal, back substitution solves.
#include "interp/cubic_spline.h"

#include "numbers/decimal.h"

namespace kalvex {
namespace {

constexpr std::string_view kRoutine = "SPLINE_CUBIC_SET";

struct Row {
    double below = 0.0;
    double diagonal = 0.0;
    double above = 0.0;
    double right = 0.0;
};

std::string KnotLine(std::span<const double> T, std::size_t index) {
    return "  T(" + std::to_string(index + 1) + ") = " + FormatGeneral6(T[index]);
}

Failure CheckKnots(std::span<const double> T) {
    for (std::size_t i = 0; i + 1 < T.size(); ++i) {
        if (!(T[i + 1] <= T[i])) continue;
        return FatalError(
            kRoutine,
            {"  The knots must be strictly increasing, but", KnotLine(T, i), KnotLine(T, i + 1)},
            StringId::CubicOrder);
    }
    return std::nullopt;
}

Failure CheckFlag(std::string_view name, std::int32_t flag) {
    if (flag >= 0 && flag <= 2) return std::nullopt;
    return FatalError(kRoutine,
                      {"  " + std::string(name) + " must be 0, 1 or 2.",
                       "  The input value is " + std::to_string(flag) + "."},
                      StringId::CubicFlag);
}

Row FirstRow(std::span<const double> T, std::span<const double> Y, const EndConditions& ends) {
    if (ends.IBCBEG == 0) return {0.0, 1.0, -1.0, 0.0};
    if (ends.IBCBEG == 2) return {0.0, 1.0, 0.0, ends.YBCBEG};
    const double h = T[1] - T[0];
    return {0.0, h / 3.0, h / 6.0, (Y[1] - Y[0]) / h - ends.YBCBEG};
}

Row LastRow(std::span<const double> T, std::span<const double> Y, const EndConditions& ends) {
    if (ends.IBCEND == 0) return {-1.0, 1.0, 0.0, 0.0};
    if (ends.IBCEND == 2) return {0.0, 1.0, 0.0, ends.YBCEND};
    const std::size_t n = T.size();
    const double h = T[n - 1] - T[n - 2];
    return {h / 6.0, h / 3.0, 0.0, ends.YBCEND - (Y[n - 1] - Y[n - 2]) / h};
}

Row InnerRow(std::span<const double> T, std::span<const double> Y, std::size_t i) {
    return {(T[i] - T[i - 1]) / 6.0, (T[i + 1] - T[i - 1]) / 3.0, (T[i + 1] - T[i]) / 6.0,
            (Y[i + 1] - Y[i]) / (T[i + 1] - T[i]) - (Y[i] - Y[i - 1]) / (T[i] - T[i - 1])};
}

/// Solves the system; a row is made when the elimination reaches it. False when a pivot is zero.
bool Solve(std::span<const double> T, std::span<const double> Y, const EndConditions& ends,
           std::vector<double>& solution) {
    const std::size_t n = T.size();
    std::vector<double> above(n);
    Row row = FirstRow(T, Y, ends);
    for (std::size_t i = 0;; ++i) {
        if (row.diagonal == 0.0) return false;
        above[i] = row.above / row.diagonal;
        solution[i] = row.right / row.diagonal;
        if (i + 1 == n) break;
        row = i + 2 == n ? LastRow(T, Y, ends) : InnerRow(T, Y, i + 1);
        row.diagonal -= row.below * above[i];
        row.right -= row.below * solution[i];
    }
    for (std::size_t i = n - 1; i-- > 0;)
        solution[i] -= above[i] * solution[i + 1];
    return true;
}

}  // namespace

Failure SPLINE_CUBIC_SET(std::span<const double> T, std::span<const double> Y,
                         const EndConditions& ends, std::vector<double>& YPP) {
    YPP.clear();
    if (T.size() < 2)
        return FatalError(kRoutine, {"  The number of data points N must be at least 2."},
                          StringId::CubicTooFew);
    if (Failure failure = CheckKnots(T)) return failure;
    if (Failure failure = CheckFlag("IBCBEG", ends.IBCBEG)) return failure;
    if (Failure failure = CheckFlag("IBCEND", ends.IBCEND)) return failure;
    YPP.assign(T.size(), 0.0);
    // On a single piece both end conditions say the same, that the second derivative is constant,
    // so the system is singular. Of all quadratics through the two points the straight line is
    // taken.
    if (T.size() == 2 && ends.IBCBEG == 0 && ends.IBCEND == 0) return std::nullopt;
    if (Solve(T, Y, ends, YPP)) return std::nullopt;
    YPP.clear();
    return FatalError(kRoutine, {"  The linear system could not be solved."},
                      StringId::CubicUnsolved);
}

SplineValue SPLINE_CUBIC_VAL(const Knots& knots, std::span<const double> Y,
                             std::span<const double> YPP, double t) {
    const std::size_t left = LeftOf(knots, t);
    const double h = knots.T[left + 1] - knots.T[left];
    const double dt = t - knots.T[left];
    const double slope = (Y[left + 1] - Y[left]) / h - (YPP[left + 1] / 6.0 + YPP[left] / 3.0) * h;
    const double third = (YPP[left + 1] - YPP[left]) / h;
    const double sixth = (YPP[left + 1] - YPP[left]) / (6.0 * h);
    return {Y[left] + dt * (slope + dt * (0.5 * YPP[left] + dt * sixth)),
            slope + dt * (YPP[left] + dt * (0.5 * third)), YPP[left] + dt * third};
}

}  // namespace kalvex
