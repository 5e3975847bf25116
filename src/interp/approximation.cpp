// Set-up and evaluation are two tables of cases over the same codes. The order of the checks inside
// a method is its own; what is here only keeps tables away from it that it could not read.
#include "interp/approximation.h"

#include <algorithm>

#include "expr/eval_error.h"
#include "interp/hermite.h"
#include "interp/parametric.h"

namespace kalvex {
namespace {

constexpr std::size_t kBlock = 4096;      ///< values between two looks at the work
constexpr double kValueCost = 50.0;       ///< of one value of a spline, nanoseconds
constexpr double kCoefficientCost = 4.0;  ///< of one coefficient of a polynomial

ApproxMethod MethodOf(const Approximation& approximation) {
    return static_cast<ApproxMethod>(approximation.parameters.approx);
}

EndConditions EndConditionsOf(const ApproxParameters& parameters) {
    return {parameters.approx_val, parameters.beta1, parameters.approx_val2, parameters.beta2};
}

void SetUpHermite(Approximation& approximation) {
    std::vector<double> derivatives;
    approximation.failure = SPLINE_PCHIP_SET(approximation.x, approximation.y, derivatives);
    if (!approximation.failure)
        approximation.coefficients =
            SPLINE_HERMITE_SET(approximation.x, approximation.y, derivatives);
}

/// The methods that are set up from the whole table.
void SetUpCoefficients(Approximation& approximation, Work& work) {
    const std::span<const double> x = approximation.x;
    const std::span<const double> y = approximation.y;
    switch (MethodOf(approximation)) {
        case ApproxMethod::LeastSquares:
            approximation.failure =
                LEAST_SET(x, y, {}, approximation.parameters.approx_val, approximation.fit, work);
            break;
        case ApproxMethod::DividedDifferences:
            approximation.failure = DATA_TO_DIF(x, y, approximation.differences, work);
            break;
        case ApproxMethod::Overhauser:
            approximation.failure = CheckOverhauser(x);
            break;
        case ApproxMethod::PiecewiseCubic:
            approximation.failure = SPLINE_CUBIC_SET(
                x, y, EndConditionsOf(approximation.parameters), approximation.coefficients);
            break;
        case ApproxMethod::CubicHermite:
            SetUpHermite(approximation);
            break;
        case ApproxMethod::Largange:
            approximation.failure = LAGRANGE_SET(x, y, approximation.lagrange);
            break;
        default:
            break;
    }
}

/// How many points a method needs before it can be asked anything. Methods that name a smaller
/// table as their failure are asked with any.
std::size_t FewestPoints(ApproxMethod method) {
    switch (method) {
        case ApproxMethod::LeastSquares:
        case ApproxMethod::DividedDifferences:
        case ApproxMethod::PiecewiseConstant:
            return 1;
        case ApproxMethod::BSplines:
        case ApproxMethod::BetaSplines:
        case ApproxMethod::PiecewiseLinear:
            return 2;
        default:
            return 0;
    }
}

bool IsKnown(std::int32_t approx) {
    return approx >= static_cast<std::int32_t>(ApproxMethod::LeastSquares) &&
           approx <= static_cast<std::int32_t>(ApproxMethod::Largange);
}

bool UsesKnots(ApproxMethod method) {
    return method >= ApproxMethod::BSplines && method <= ApproxMethod::CubicHermite;
}

double PlannedSetUp(const Approximation& approximation) {
    const auto count = static_cast<double>(approximation.x.size());
    switch (MethodOf(approximation)) {
        case ApproxMethod::LeastSquares:
            return LeastSetCost(approximation.x.size(), approximation.parameters.approx_val);
        case ApproxMethod::DividedDifferences:
            return count * count;
        default:
            return 0.0;
    }
}

double CostOfValue(const Approximation& approximation) {
    switch (MethodOf(approximation)) {
        case ApproxMethod::LeastSquares:
            return kCoefficientCost * static_cast<double>(approximation.fit.D.size());
        case ApproxMethod::DividedDifferences:
        case ApproxMethod::Largange:
            // These look at the work themselves.
            return kCoefficientCost * static_cast<double>(approximation.x.size());
        default:
            return kValueCost;
    }
}

/// One value of the methods that can fail at it.
Failure ValueThatMayFail(const Approximation& approximation, double t, double& value) {
    const Knots& knots = approximation.knots;
    const std::span<const double> y = approximation.y;
    switch (MethodOf(approximation)) {
        case ApproxMethod::OverhauserNonuniform:
            return SPLINE_OVERHAUSER_NONUNI_VAL(knots, y, t, value);
        case ApproxMethod::OverhauserUniform:
            return SPLINE_OVERHAUSER_UNI_VAL(knots, y, t, value);
        case ApproxMethod::Overhauser:
            return SPLINE_OVERHAUSER_VAL(1, knots, y, t, {&value, 1});
        default: {
            SplineValue result;
            Failure failure = SPLINE_QUADRATIC_VAL(knots, y, t, result);
            value = result.value;
            return failure;
        }
    }
}

/// One value of the others.
double Value(Approximation& approximation, double t, Work& work) {
    const Knots& knots = approximation.knots;
    const std::span<const double> y = approximation.y;
    const ApproxParameters& parameters = approximation.parameters;
    switch (MethodOf(approximation)) {
        case ApproxMethod::LeastSquares:
            return LEAST_VAL(approximation.fit, t);
        case ApproxMethod::DividedDifferences:
            return DIF_VAL(approximation.x, approximation.differences, t, work);
        case ApproxMethod::BSplines:
            return SPLINE_B_VAL(knots, y, t);
        case ApproxMethod::BetaSplines:
            return SPLINE_BETA_VAL(parameters.beta1, parameters.beta2, knots, y, t);
        case ApproxMethod::PiecewiseConstant:
            return SPLINE_CONSTANT_VAL(knots, y, t);
        case ApproxMethod::PiecewiseLinear:
            return SPLINE_LINEAR_VAL(knots, y, t).value;
        case ApproxMethod::PiecewiseCubic:
            return SPLINE_CUBIC_VAL(knots, y, approximation.coefficients, t).value;
        case ApproxMethod::CubicHermite:
            return SPLINE_HERMITE_VAL(knots, approximation.coefficients, t).value;
        default:
            return LAGRANGE_VAL(approximation.lagrange, t, work);
    }
}

bool WatchesItself(ApproxMethod method) {
    return method == ApproxMethod::DividedDifferences || method == ApproxMethod::Largange;
}

/// False when the rest is not to be evaluated.
bool EvaluateBlock(Approximation& approximation, std::span<const double> abscissas,
                   std::span<double> values, Work& work) {
    const bool mayFail = MayFailAtAValue(approximation);
    for (std::size_t i = 0; i < abscissas.size(); ++i) {
        if (mayFail) {
            approximation.failure = ValueThatMayFail(approximation, abscissas[i], values[i]);
            if (approximation.failure) return false;
        } else {
            const double value = Value(approximation, abscissas[i], work);
            if (work.stopped) return false;
            values[i] = value;
        }
    }
    if (WatchesItself(MethodOf(approximation))) return true;
    return Spend(work, CostOfValue(approximation) * static_cast<double>(abscissas.size()));
}

}  // namespace

Approximation SetUpApproximation(std::span<const double> x, std::span<const double> y,
                                 const ApproxParameters& parameters, const WorkProgress& progress) {
    Approximation approximation;
    approximation.parameters = parameters;
    approximation.x = x;
    approximation.y = y;
    const ApproxMethod method = MethodOf(approximation);
    if (!IsKnown(parameters.approx) || x.size() < FewestPoints(method)) return approximation;
    Work work{&progress, PlannedSetUp(approximation)};
    SetUpCoefficients(approximation, work);
    approximation.stopped = work.stopped;
    if (approximation.failure || work.stopped) return approximation;
    if (UsesKnots(method)) approximation.knots = MakeKnots(x);
    // No term at all says nothing; the sum of none would be a line that nobody asked for.
    approximation.hasValues = method != ApproxMethod::LeastSquares || !approximation.fit.D.empty();
    return approximation;
}

bool MayFailAtAValue(const Approximation& approximation) {
    const ApproxMethod method = MethodOf(approximation);
    return method == ApproxMethod::PiecewiseQuadratic ||
           (method >= ApproxMethod::OverhauserNonuniform && method <= ApproxMethod::Overhauser);
}

void EvaluateApproximation(Approximation& approximation, std::span<const double> abscissas,
                           std::span<double> values, const WorkProgress& progress) {
    std::fill(values.begin(), values.end(), UndefinedValue);
    if (!approximation.hasValues || approximation.failure || approximation.stopped) return;
    Work work{&progress, CostOfValue(approximation) * static_cast<double>(abscissas.size())};
    for (std::size_t begin = 0; begin < abscissas.size(); begin += kBlock) {
        const std::size_t count = std::min(kBlock, abscissas.size() - begin);
        if (!EvaluateBlock(approximation, abscissas.subspan(begin, count),
                           values.subspan(begin, count), work))
            break;
    }
    approximation.stopped = work.stopped;
    if (approximation.failure) std::fill(values.begin(), values.end(), UndefinedValue);
}

}  // namespace kalvex
