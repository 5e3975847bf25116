// The four forms of the Gauss hypergeometric function (DLMF 15.8.1) and estimates of what each of
// them costs. Internal to the special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// Added to the cost of a series that is likely to cancel. Chosen: it is more than any series may
/// cost that is summed at all, so that these series come last and can be told from the others.
inline constexpr double kHopeless = 1e6;

/// F = (1-x)^power times the series.
struct Form {
    HypergeometricParameters p;
    DoubleDouble power;
    bool pfaff = false;
    double cost = 0;
};

/// The argument of the form's series.
[[nodiscard]] inline DoubleDouble ArgumentOf(const Form& form, double x) {
    return form.pfaff ? x / TwoSum(x, -1) : DoubleDouble{x, 0};
}

/// Whether a is 0 or a negative integer and the series ends by it before c+k becomes 0.
[[nodiscard]] bool EndsBefore(DoubleDouble a, DoubleDouble c);

/// The degree if the series is a polynomial, else infinite.
[[nodiscard]] double DegreeOf(const HypergeometricParameters& p);

/// The series itself, Euler's and Pfaff's two (DLMF 15.8.1).
[[nodiscard]] std::array<Form, 4> FormsOf(const HypergeometricParameters& p);

/// The natural logarithm of the factor by which cancellation in the power series in z is likely to
/// enlarge its relative error.
[[nodiscard]] double ExpectedLoss(const HypergeometricParameters& p, double z);

/// How many terms the series is likely to take, with what the power of 1-x takes, counted in terms.
/// kHopeless is added if the series is likely to cancel.
[[nodiscard]] double CostOf(const Form& form, double x);

}  // namespace kalvex::specfun
