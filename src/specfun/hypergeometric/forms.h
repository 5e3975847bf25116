// The four forms of the Gauss hypergeometric function (DLMF 15.8.1) and estimates of what each of
// them costs. Internal to the special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

inline constexpr double kHopeless = 1e6;  // added to the cost of a series likely to cancel

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

/// A negative integer whose series ends before c meets 0.
[[nodiscard]] bool EndsBefore(DoubleDouble a, DoubleDouble c);

/// The degree of a polynomial, else infinite.
[[nodiscard]] double DegreeOf(const HypergeometricParameters& p);

/// The series itself, Euler's and Pfaff's two (DLMF 15.8.1).
[[nodiscard]] std::array<Form, 4> FormsOf(const HypergeometricParameters& p);

/// How many digits, as a natural logarithm, the power series in z is likely to lose.
[[nodiscard]] double ExpectedLoss(const HypergeometricParameters& p, double z);

/// Terms of the series, as far as they can be foreseen.
[[nodiscard]] double CostOf(const Form& form, double x);

}  // namespace kalvex::specfun
