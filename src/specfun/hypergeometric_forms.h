// The forms of the Gauss hypergeometric function and what each of them is likely to cost. Internal
// to the special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric_parts.h"

namespace kalvex::specfun {

inline constexpr double kHopeless = 1e6;  // added to the cost of what is likely to cancel

/// F = (1-x)^power times the series.
struct Form {
    HypergeometricParameters p;
    DoubleDouble power;
    bool pfaff = false;
    double cost = 0;
};

/// A negative integer whose series ends before c meets 0.
bool EndsBefore(DoubleDouble a, DoubleDouble c);

/// The series itself, Euler's and Pfaff's two (DLMF 15.8.1).
std::array<Form, 4> FormsOf(const HypergeometricParameters& p);

/// Terms of the series, as far as they can be foreseen.
double CostOf(const Form& form, double x);

/// Terms of a series that take as long as the walk to the form.
double CostOfShifts(const Form& form, double x);

/// For large positive parameters and c-a-b small beside them the solution w^(c-a-b) outgrows the
/// function along the walk to a point near 1: as Bessel functions of 2 sqrt(a b w) do.
bool IsOutgrown(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
