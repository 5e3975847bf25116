// Modified Bessel functions I and K of orders 0 to MaxModifiedOrder and finite x > 0.
#pragma once

#include "specfun/bessel/common.h"

namespace kalvex::specfun {

/// I of the order.
[[nodiscard]] Scaled ModifiedI(double order, double x);

/// K of the order.
[[nodiscard]] Scaled ModifiedK(double order, double x);

}  // namespace kalvex::specfun
