// The Gauss hypergeometric function with large parameters, by integrals. Internal to the special
// functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/value.h"

namespace kalvex::specfun {

/// The function from its forms, as FormsOf gives them, by Euler's integral, by the loop integral
/// or, for c below 0, by two integrals. It takes about as long for all parameters; below some
/// hundred it mostly fails. c is not 0, -1, -2, ...
[[nodiscard]] Value ByIntegral(const std::array<Form, 4>& forms, double x);

}  // namespace kalvex::specfun
