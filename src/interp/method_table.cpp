// The library's routines stand behind small functions of one shape, so that the table can hold
// them. The order of the checks inside a routine is its own; `fewestPoints` only keeps tables away
// from it that it could not read.
#include "interp/method_table.h"

#include <algorithm>

#include "interp/approximation_record.h"
#include "interp/hermite.h"
#include "interp/parametric.h"

namespace kalvex {
namespace {

constexpr double kSplineCost = 50.0;      ///< of one value of a spline, operations
constexpr double kCoefficientCost = 4.0;  ///< of one coefficient of a polynomial
constexpr double kPassCost = 20.0;        ///< of one point in the set-up of a spline

double CostOfSpline(const Approximation&) {
    return kSplineCost;
}

double CostOfPolynomial(const Approximation& a) {
    return kCoefficientCost * static_cast<double>(a.x.size());
}

Failure SetUpLeastSquares(Approximation& a, Work& work) {
    Failure failure = LEAST_SET(a.x, a.y, {}, a.parameters.approx_val, a.fit, work);
    // The sum of no terms would be the line y = 0, which would be misleading.
    a.hasValues = !a.fit.D.empty();
    return failure;
}

double SetUpCostOfLeastSquares(const Approximation& a) {
    return LeastSetCost(a.x.size(), a.parameters.approx_val);
}

double ValueOfLeastSquares(Approximation& a, double t, Work&) {
    return LEAST_VAL(a.fit, t);
}

double CostOfLeastSquares(const Approximation& a) {
    return kCoefficientCost * static_cast<double>(a.fit.D.size());
}

Failure SetUpDifferences(Approximation& a, Work& work) {
    return DATA_TO_DIF(a.x, a.y, a.differences, work);
}

double SetUpCostOfDifferences(const Approximation& a) {
    return static_cast<double>(a.x.size()) * static_cast<double>(a.x.size());
}

double ValueOfDifferences(Approximation& a, double t, Work& work) {
    return DIF_VAL(a.x, a.differences, t, work);
}

double ValueOfBSpline(Approximation& a, double t, Work&) {
    return SPLINE_B_VAL(a.knots, a.y, t);
}

double ValueOfBetaSpline(Approximation& a, double t, Work&) {
    return SPLINE_BETA_VAL(a.parameters.beta1, a.parameters.beta2, a.knots, a.y, t);
}

Failure ValueOfNonuniform(const Approximation& a, double t, double& value) {
    return SPLINE_OVERHAUSER_NONUNI_VAL(a.knots, a.y, t, value);
}

Failure ValueOfUniform(const Approximation& a, double t, double& value) {
    return SPLINE_OVERHAUSER_UNI_VAL(a.knots, a.y, t, value);
}

Failure SetUpOverhauser(Approximation& a, Work&) {
    return CheckOverhauser(a.x);
}

Failure ValueOfOverhauser(const Approximation& a, double t, double& value) {
    return SPLINE_OVERHAUSER_VAL(1, a.knots, a.y, t, {&value, 1});
}

double ValueOfConstant(Approximation& a, double t, Work&) {
    return SPLINE_CONSTANT_VAL(a.knots, a.y, t);
}

double ValueOfLinear(Approximation& a, double t, Work&) {
    return SPLINE_LINEAR_VAL(a.knots, a.y, t).value;
}

Failure ValueOfQuadratic(const Approximation& a, double t, double& value) {
    SplineValue result;
    Failure failure = SPLINE_QUADRATIC_VAL(a.knots, a.y, t, result);
    value = result.value;
    return failure;
}

/// Tells the work that a pass over the points is done; false when it is to stop. Only tables of
/// hundreds of thousands of points take so long that the progress function is called.
bool SpendPass(const Approximation& a, Work& work) {
    return Spend(work, kPassCost * static_cast<double>(a.x.size()));
}

Failure SetUpCubic(Approximation& a, Work& work) {
    const ApproxParameters& p = a.parameters;
    Failure failure =
        SPLINE_CUBIC_SET(a.x, a.y, {p.approx_val, p.beta1, p.approx_val2, p.beta2}, a.coefficients);
    static_cast<void>(SpendPass(a, work));  // the last step; who called looks at `stopped`
    return failure;
}

double ValueOfCubic(Approximation& a, double t, Work&) {
    return SPLINE_CUBIC_VAL(a.knots, a.y, a.coefficients, t).value;
}

Failure SetUpHermite(Approximation& a, Work& work) {
    std::vector<double> derivatives;
    if (Failure failure = SPLINE_PCHIP_SET(a.x, a.y, derivatives)) return failure;
    if (!SpendPass(a, work)) return std::nullopt;
    a.coefficients = SPLINE_HERMITE_SET(a.x, a.y, derivatives);
    static_cast<void>(SpendPass(a, work));
    return std::nullopt;
}

double ValueOfHermite(Approximation& a, double t, Work&) {
    return SPLINE_HERMITE_VAL(a.knots, a.coefficients, t).value;
}

Failure SetUpLagrange(Approximation& a, Work&) {
    return LAGRANGE_SET(a.x, a.y, a.lagrange);
}

double ValueOfLagrange(Approximation& a, double t, Work& work) {
    return LAGRANGE_VAL(a.lagrange, t, work);
}

constexpr MethodParameter kTerms[] = {{.kind = ParameterKind::Terms,
                                       .whole = &ApproxParameters::approx_val,
                                       .meaning = "number of terms",
                                       .control = "terms",
                                       .label = StringId::TermsCaption,
                                       .tips = {StringId::TermsNote}}};

constexpr MethodParameter kBetas[] = {{.kind = ParameterKind::Number,
                                       .real = &ApproxParameters::beta1,
                                       .meaning = "bias",
                                       .control = "beta1",
                                       .label = StringId::BetaBias,
                                       .tips = {StringId::BetaBiasTip}},
                                      {.kind = ParameterKind::Number,
                                       .real = &ApproxParameters::beta2,
                                       .meaning = "tension",
                                       .control = "beta2",
                                       .label = StringId::BetaTension,
                                       .tips = {StringId::BetaTensionTip}}};

constexpr MethodParameter kEnds[] = {
    {.kind = ParameterKind::Choice,
     .whole = &ApproxParameters::approx_val,
     .meaning = "left boundary flag",
     .control = "leftFlag",
     .label = StringId::LeftBoundary,
     .tips = {StringId::LeftQuadratic, StringId::LeftFirstDerivative,
              StringId::LeftSecondDerivative}},
    {.kind = ParameterKind::Number,
     .real = &ApproxParameters::beta1,
     .meaning = "left boundary value",
     .control = "leftValue",
     .label = StringId::LeftValue},
    {.kind = ParameterKind::Choice,
     .whole = &ApproxParameters::approx_val2,
     .meaning = "right boundary flag",
     .control = "rightFlag",
     .label = StringId::RightBoundary,
     .tips = {StringId::RightQuadratic, StringId::RightFirstDerivative,
              StringId::RightSecondDerivative}},
    {.kind = ParameterKind::Number,
     .real = &ApproxParameters::beta2,
     .meaning = "right boundary value",
     .control = "rightValue",
     .label = StringId::RightValue}};

constexpr auto kRows = std::to_array<MethodRow>({
    {.method = ApproxMethod::LeastSquares,
     .form = {"termsDialog", StringId::TermsNote, kTerms},
     .fewestPoints = 1,
     .setUp = SetUpLeastSquares,
     .setUpCost = SetUpCostOfLeastSquares,
     .value = ValueOfLeastSquares,
     .valueCost = CostOfLeastSquares},
    {.method = ApproxMethod::DividedDifferences,
     .fewestPoints = 1,
     .setUp = SetUpDifferences,
     .setUpCost = SetUpCostOfDifferences,
     .value = ValueOfDifferences,
     .valueCost = CostOfPolynomial,
     .spendsItself = true},
    {.method = ApproxMethod::BSplines,
     .fewestPoints = 2,
     .usesKnots = true,
     .value = ValueOfBSpline,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::BetaSplines,
     .form = {"betaDialog", StringId::BetaNote, kBetas},
     .fewestPoints = 2,
     .usesKnots = true,
     .value = ValueOfBetaSpline,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::OverhauserNonuniform,
     .usesKnots = true,
     .valueOrFailure = ValueOfNonuniform,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::OverhauserUniform,
     .usesKnots = true,
     .valueOrFailure = ValueOfUniform,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::Overhauser,
     .usesKnots = true,
     .setUp = SetUpOverhauser,
     .valueOrFailure = ValueOfOverhauser,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::ConstantSpline,
     .fewestPoints = 1,
     .usesKnots = true,
     .value = ValueOfConstant,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::LinearSpline,
     .fewestPoints = 2,
     .usesKnots = true,
     .value = ValueOfLinear,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::QuadraticSpline,
     .usesKnots = true,
     .valueOrFailure = ValueOfQuadratic,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::CubicSpline,
     .form = {"cubicDialog", {}, kEnds},
     .usesKnots = true,
     .setUp = SetUpCubic,
     .value = ValueOfCubic,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::CubicHermite,
     .usesKnots = true,
     .setUp = SetUpHermite,
     .value = ValueOfHermite,
     .valueCost = CostOfSpline},
    {.method = ApproxMethod::Largange,
     .setUp = SetUpLagrange,
     .value = ValueOfLagrange,
     .valueCost = CostOfPolynomial,
     .spendsItself = true},
});
static_assert(HasARowPerMethod(kRows));
static_assert(std::all_of(kRows.begin(), kRows.end(),
                          [](const MethodRow& row) {
                              return row.valueCost != nullptr &&
                                     (row.value != nullptr) != (row.valueOrFailure != nullptr);
                          }),
              "every method has one way to its value, and a cost");

}  // namespace

std::span<const MethodRow> MethodRows() {
    return kRows;
}

const MethodRow* FindMethod(std::int32_t approx) {
    return approx >= 0 && approx < kMethodCount ? &kRows[static_cast<std::size_t>(approx)]
                                                : nullptr;
}

}  // namespace kalvex
