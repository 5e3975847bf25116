// The parameters where the walks along the contiguous relations start. Internal to the special
// functions.
#pragma once

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// Parameters of the same fractions next to 0, c-a-b between -1/2 and 1/2, c, c-a and c-b positive.
[[nodiscard]] HypergeometricParameters GeneralStart(const HypergeometricParameters& p);

/// For an integer a from 0 down: where the polynomial has three terms at most, c-b has the sign it
/// will have if it is next to an integer, and c-a-b is not below -1/2.
[[nodiscard]] HypergeometricParameters PolynomialStart(const HypergeometricParameters& p);

}  // namespace kalvex::specfun
