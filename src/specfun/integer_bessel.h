// Bessel functions of integral order n >= 0 and x > 0 finite; the public functions reduce to
// these.
#pragma once

namespace kalvex::specfun {

double IntegerBesselJ(int n, double x);

/// Minus infinity where a step overflows.
double IntegerBesselY(int n, double x);

/// Throws "Overflow in BesselKN" where a step overflows.
double IntegerBesselK(int n, double x);

}  // namespace kalvex::specfun
