// The B spline is evaluated as the beta spline with bias 1 and tension 0, so that the two agree bit
// for bit. The inner pieces of the uniform and the nonuniform Overhauser spline are cubic Hermite
// polynomials whose end slopes are those of parabolas through three points.
#include "interp/parametric.h"

#include "numbers/decimal.h"

namespace kalvex {
namespace {

constexpr std::string_view kUniform = "SPLINE_OVERHAUSER_UNI_VAL";
constexpr std::string_view kNonuniform = "SPLINE_OVERHAUSER_NONUNI_VAL";
constexpr std::string_view kOverhauser = "SPLINE_OVERHAUSER_VAL";
constexpr std::string_view kParabola = "PARABOLA_VAL2";

struct Controls {
    double before = 0.0;
    double left = 0.0;
    double right = 0.0;
    double behind = 0.0;
};

Controls ControlsOf(std::span<const double> Y, std::size_t left) {
    const std::size_t n = Y.size();
    return {left > 0 ? Y[left - 1] : 2.0 * Y[0] - Y[1], Y[left], Y[left + 1],
            left + 2 < n ? Y[left + 2] : 2.0 * Y[n - 1] - Y[n - 2]};
}

double ParameterOf(const Knots& knots, std::size_t left, double t) {
    return (t - knots.T[left]) / (knots.T[left + 1] - knots.T[left]);
}

/// Barsky's beta spline basis at u, not yet divided by the sum of the four weights.
Controls BetaWeights(double B1, double B2, double u) {
    const double square = u * u;
    const double cube = u * square;
    const double rest = 1.0 - u;
    const double B1Square = B1 * B1;
    const double B1Cube = B1 * B1Square;
    return {2.0 * B1Cube * rest * rest * rest,
            2.0 * B1Cube * u * (square - 3.0 * u + 3.0) +
                2.0 * B1Square * (cube - 3.0 * square + 2.0) + 2.0 * B1 * (cube - 3.0 * u + 2.0) +
                B2 * (2.0 * cube - 3.0 * square + 1.0),
            2.0 * B1Square * square * (3.0 - u) + 2.0 * B1 * u * (3.0 - square) +
                B2 * square * (3.0 - 2.0 * u) + 2.0 * (1.0 - cube),
            2.0 * cube};
}

/// The parabola through three points with its slope, by Newton's form.
struct Parabola {
    double T1 = 0.0;
    double T2 = 0.0;
    double Y1 = 0.0;
    double DIF1 = 0.0;
    double DIF2 = 0.0;
};

/// The parabola through the points first, first + 1 and first + 2. A point has `stride` values in
/// Y, of which the one at `place` is taken.
Parabola ParabolaOf(std::span<const double> T, std::span<const double> Y, std::size_t first,
                    std::size_t stride = 1, std::size_t place = 0) {
    const double h1 = T[first + 1] - T[first];
    const double h2 = T[first + 2] - T[first + 1];
    const double Y1 = Y[first * stride + place];
    const double DIF1 = (Y[(first + 1) * stride + place] - Y1) / h1;
    const double wide = (Y[(first + 2) * stride + place] - Y1) / (T[first + 2] - T[first]);
    return {T[first], T[first + 1], Y1, DIF1, (wide - DIF1) / h2};
}

double ValueAt(const Parabola& parabola, double t) {
    return parabola.Y1 + (t - parabola.T1) * (parabola.DIF1 + (t - parabola.T2) * parabola.DIF2);
}

double SlopeAt(const Parabola& parabola, double t) {
    return parabola.DIF1 + parabola.DIF2 * ((t - parabola.T1) + (t - parabola.T2));
}

/// The cubic in u with the values a, b and the slopes p, q at u = 0 and u = 1.
double HermitePiece(double a, double b, double p, double q, double u) {
    const double rise = b - a;
    return a + u * (p + u * (3.0 * rise - 2.0 * p - q + u * (p + q - 2.0 * rise)));
}

}  // namespace

double SPLINE_BETA_VAL(double BETA1, double BETA2, const Knots& knots,
                       std::span<const double> YDATA, double t) {
    const std::size_t left = LeftOf(knots, t);
    const Controls y = ControlsOf(YDATA, left);
    const Controls w = BetaWeights(BETA1, BETA2, ParameterOf(knots, left, t));
    const double delta = ((2.0 * BETA1 + 4.0) * BETA1 + 4.0) * BETA1 + BETA2 + 2.0;
    return (y.before * w.before + y.left * w.left + y.right * w.right + y.behind * w.behind) /
           delta;
}

double SPLINE_B_VAL(const Knots& knots, std::span<const double> YDATA, double t) {
    return SPLINE_BETA_VAL(1.0, 0.0, knots, YDATA, t);
}

Failure SPLINE_OVERHAUSER_UNI_VAL(const Knots& knots, std::span<const double> YDATA, double t,
                                  double& YVAL) {
    const std::size_t n = knots.T.size();
    if (n < 3) return FatalError(kUniform, {"  NDATA < 3."}, StringId::OverhauserTooFew);
    const std::size_t left = LeftOf(knots, t);
    const double u = ParameterOf(knots, left, t);
    const auto slope = [&](std::size_t i) { return 0.5 * (YDATA[i + 1] - YDATA[i - 1]); };
    const double a = YDATA[left];
    const double b = YDATA[left + 1];
    if (left == 0) {
        YVAL = a + u * ((b - a) + (u - 1.0) * 0.5 * (YDATA[2] - 2.0 * b + a));
    } else if (left + 2 == n) {
        YVAL = a + u * (slope(left) + u * 0.5 * (b - 2.0 * a + YDATA[left - 1]));
    } else {
        YVAL = HermitePiece(a, b, slope(left), slope(left + 1), u);
    }
    return std::nullopt;
}

Failure SPLINE_OVERHAUSER_NONUNI_VAL(const Knots& knots, std::span<const double> YDATA, double t,
                                     double& YVAL) {
    const std::size_t n = knots.T.size();
    if (n < 3) return FatalError(kNonuniform, {"  NDATA < 3."}, StringId::OverhauserTooFew);
    const std::size_t left = LeftOf(knots, t);
    const auto LEFT = static_cast<std::int64_t>(left) + 1;
    if (Failure failure = CheckOverhauserPiece(LEFT, static_cast<std::int64_t>(n))) return failure;
    if (left == 0) {
        YVAL = ValueAt(ParabolaOf(knots.T, YDATA, 0), t);
    } else if (left + 2 == n) {
        YVAL = ValueAt(ParabolaOf(knots.T, YDATA, n - 3), t);
    } else {
        const double h = knots.T[left + 1] - knots.T[left];
        const double p = h * SlopeAt(ParabolaOf(knots.T, YDATA, left - 1), knots.T[left]);
        const double q = h * SlopeAt(ParabolaOf(knots.T, YDATA, left), knots.T[left + 1]);
        YVAL = HermitePiece(YDATA[left], YDATA[left + 1], p, q, ParameterOf(knots, left, t));
    }
    return std::nullopt;
}

Failure CheckOverhauserPiece(std::int64_t LEFT, std::int64_t NDATA) {
    if (LEFT > 0 && LEFT < NDATA) return std::nullopt;
    return FatalError(kNonuniform,
                      {"  Nonsensical value of LEFT = " + std::to_string(LEFT),
                       "  but 0 < LEFT < NDATA = " + std::to_string(NDATA), "  is required."},
                      StringId::OverhauserPiece);
}

Failure CheckOverhauser(std::span<const double> TDATA) {
    for (std::size_t i = 1; i < TDATA.size(); ++i) {
        if (TDATA[i] <= TDATA[i - 1])
            return FatalError(kOverhauser, {"  The data abscissas are not strictly ascending."},
                              StringId::OverhauserOrder);
    }
    if (TDATA.size() < 3)
        return FatalError(kOverhauser, {"  NDATA < 3."}, StringId::OverhauserTooFew);
    return std::nullopt;
}

Failure SPLINE_OVERHAUSER_VAL(std::int32_t NDIM, const Knots& knots, std::span<const double> YDATA,
                              double t, std::span<double> YVAL) {
    const std::size_t n = knots.T.size();
    const auto left = static_cast<std::int32_t>(LeftOf(knots, t)) + 1;
    const auto last = static_cast<std::int32_t>(n) - 1;
    if (left == 1) return PARABOLA_VAL2(NDIM, knots.T, YDATA, 1, t, YVAL);
    if (Failure failure = PARABOLA_VAL2(NDIM, knots.T, YDATA, left - 1, t, YVAL)) return failure;
    if (left == last) return std::nullopt;
    std::vector<double> behind(YVAL.size());
    if (Failure failure = PARABOLA_VAL2(NDIM, knots.T, YDATA, left, t, behind)) return failure;
    const auto index = static_cast<std::size_t>(left);
    const double u = ParameterOf(knots, index - 1, t);
    for (std::size_t i = 0; i < YVAL.size(); ++i)
        YVAL[i] = (1.0 - u) * YVAL[i] + u * behind[i];
    return std::nullopt;
}

Failure PARABOLA_VAL2(std::int32_t NDIM, std::span<const double> TDATA,
                      std::span<const double> YDATA, std::int32_t LEFT, double t,
                      std::span<double> YVAL) {
    const auto count = static_cast<std::int32_t>(TDATA.size());
    if (NDIM < 1) return FatalError(kParabola, {"  NDIM < 1."}, StringId::OverhauserPiece);
    // KEEP: the text says 0 although the first piece has the number 1.
    if (LEFT < 1) return FatalError(kParabola, {"  LEFT < 0."}, StringId::OverhauserPiece);
    if (count - 2 < LEFT)
        return FatalError(kParabola, {"  NDATA-2 < LEFT."}, StringId::OverhauserPiece);
    const auto first = static_cast<std::size_t>(LEFT - 1);
    const double T1 = TDATA[first];
    const double T2 = TDATA[first + 1];
    const double T3 = TDATA[first + 2];
    if (T2 <= T1 || T3 <= T2) {
        return FatalError(kParabola,
                          {"  T2 <= T1 or T3 <= T2.", "  T1 = " + FormatGeneral6(T1),
                           "  T2 = " + FormatGeneral6(T2), "  T3 = " + FormatGeneral6(T3)},
                          StringId::OverhauserOrder);
    }
    const auto stride = static_cast<std::size_t>(NDIM);
    for (std::size_t i = 0; i < stride; ++i)
        YVAL[i] = ValueAt(ParabolaOf(TDATA, YDATA, first, stride, i), t);
    return std::nullopt;
}

}  // namespace kalvex
