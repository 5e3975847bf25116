// A piece is monotone when its end derivatives are at most three times its slope (Fritsch and
// Carlson). The weighted harmonic mean of two neighbouring slopes is always within that limit. The
// derivative of the three-point parabola at an end is not, so it is limited.
#include "interp/hermite.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

constexpr std::string_view kRoutine = "SPLINE_PCHIP_SET";

bool SameSign(double a, double b) {
    return (a > 0.0 && b > 0.0) || (a < 0.0 && b < 0.0);
}

/// The derivative at an end point, from the lengths and slopes of the end piece (1) and of the
/// piece next to it (2).
double EndDerivative(double h1, double slope1, double h2, double slope2) {
    const double sum = h1 + h2;
    const double estimate = (h1 + sum) / sum * slope1 - h1 / sum * slope2;
    if (!SameSign(estimate, slope1)) return 0.0;
    const double limit = 3.0 * slope1;
    const bool turns = SameSign(slope1, -slope2);
    return turns && std::fabs(estimate) > std::fabs(limit) ? limit : estimate;
}

/// The derivative between two pieces: the weighted harmonic mean of their slopes. The shorter piece
/// has the greater weight, up to twice that of the other. The formula has ratios to the larger
/// slope because the product of two slopes may overflow.
double InnerDerivative(double h1, double slope1, double h2, double slope2) {
    if (!SameSign(slope1, slope2)) return 0.0;
    const double larger = std::max(std::fabs(slope1), std::fabs(slope2));
    const double smaller = std::min(std::fabs(slope1), std::fabs(slope2));
    const double sum = 3.0 * (h1 + h2);
    const double w1 = (2.0 * h1 + h2) / sum;
    const double w2 = (h1 + 2.0 * h2) / sum;
    const double mean =
        smaller / (w1 * (std::fabs(slope1) / larger) + w2 * (std::fabs(slope2) / larger));
    return std::copysign(mean, slope1);
}

}  // namespace

Failure SPLINE_PCHIP_SET(std::span<const double> X, std::span<const double> F,
                         std::vector<double>& D) {
    const std::size_t n = X.size();
    D.clear();
    if (n < 2)
        return FatalError(kRoutine, {"  Number of data points less than 2."},
                          StringId::HermiteTooFew);
    for (std::size_t i = 1; i < n; ++i) {
        if (X[i] <= X[i - 1])
            return FatalError(kRoutine, {"  X array not strictly increasing."},
                              StringId::HermiteOrder);
    }
    const auto h = [&](std::size_t i) { return X[i + 1] - X[i]; };
    const auto slope = [&](std::size_t i) { return (F[i + 1] - F[i]) / h(i); };
    D.assign(n, slope(0));
    if (n == 2) return std::nullopt;
    D[0] = EndDerivative(h(0), slope(0), h(1), slope(1));
    for (std::size_t i = 1; i + 1 < n; ++i)
        D[i] = InnerDerivative(h(i - 1), slope(i - 1), h(i), slope(i));
    D[n - 1] = EndDerivative(h(n - 2), slope(n - 2), h(n - 3), slope(n - 3));
    return std::nullopt;
}

std::vector<double> SPLINE_HERMITE_SET(std::span<const double> T, std::span<const double> Y,
                                       std::span<const double> YP) {
    std::vector<double> C(4 * T.size());
    for (std::size_t i = 0; i < T.size(); ++i) {
        double* const piece = &C[4 * i];
        piece[0] = Y[i];
        piece[1] = YP[i];
        if (i + 1 == T.size()) break;
        const double h = T[i + 1] - T[i];
        const double slope = (Y[i + 1] - Y[i]) / h;
        const double bend = YP[i] + YP[i + 1] - 2.0 * slope;
        piece[2] = (slope - YP[i] - bend) / h;
        piece[3] = bend / h / h;
    }
    return C;
}

SplineValue SPLINE_HERMITE_VAL(const Knots& knots, std::span<const double> C, double t) {
    const std::size_t left = LeftOf(knots, t);
    const std::span<const double> piece = C.subspan(4 * left, 4);
    const double dt = t - knots.T[left];
    return {piece[0] + dt * (piece[1] + dt * (piece[2] + dt * piece[3])),
            piece[1] + dt * (2.0 * piece[2] + dt * 3.0 * piece[3]),
            2.0 * piece[2] + dt * 6.0 * piece[3]};
}

}  // namespace kalvex
