// Estimates for large parameters, made before anything is summed: whether the hypergeometric
// function is the minimal solution of its recurrences, its logarithmic derivative, and whether its
// value overflows. Internal to the special functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// By how many e-foldings the dominant solutions outgrow the function on a straight line of
/// parameters to p, at z, w = 1-z. For c below 1 this holds only for polynomials of few terms,
/// which have no part of the solution z^(1-c).
[[nodiscard]] double Outgrown(const HypergeometricParameters& p, double z, double w);

/// An estimate of z F'/F where the function is the minimal solution. Wherever it was compared its
/// error was a tenth of itself and z/w together at most, and far less for large parameters.
[[nodiscard]] double SlopeOfMinimal(const HypergeometricParameters& p, double z, double w);

/// True only where x is so close to 1 that the value is certain to overflow. False does not mean
/// that it does not.
[[nodiscard]] bool Overflows(const HypergeometricParameters& p, double x);

}  // namespace kalvex::specfun
