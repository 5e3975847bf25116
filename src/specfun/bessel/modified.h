// Modified Bessel functions I and K of orders 0 to MaxModifiedOrder and finite x > 0.
#pragma once

#include "specfun/bessel/common.h"

namespace kalvex::specfun {

/// I of the order; may be infinite or zero beyond the range of the extended format.
Extended ModifiedI(double order, Extended x);

/// K of the order; likewise.
Extended ModifiedK(double order, Extended x);

}  // namespace kalvex::specfun
