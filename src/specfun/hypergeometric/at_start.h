// The Gauss hypergeometric function where the walks along the contiguous relations start. Internal
// to the special functions.
#pragma once

#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

/// Value and slope at parameters of GeneralStart or PolynomialStart, about `tolerance` times their
/// size off, with bounds of both errors.
[[nodiscard]] HypergeometricPoint AtStart(const HypergeometricParameters& p, const Place& place,
                                          double tolerance);

}  // namespace kalvex::specfun
