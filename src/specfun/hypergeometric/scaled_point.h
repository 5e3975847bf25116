// Points of the hypergeometric function with exponents of their own: products and sums. Internal to
// the special functions.
#pragma once

#include "specfun/hypergeometric/log_gamma.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// No value.
inline constexpr HypergeometricPoint kFailedPoint = {{}, {}, INFINITY, true};

/// The product times a point. Failed where either is, or beyond exponents of some 1e9.
[[nodiscard]] HypergeometricPoint Times(const GammaProduct& product, HypergeometricPoint point);

[[nodiscard]] HypergeometricPoint Sum(const HypergeometricPoint& left,
                                      const HypergeometricPoint& right);

}  // namespace kalvex::specfun
