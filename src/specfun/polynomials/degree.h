// The test of the degree of a polynomial.
#pragma once

#include <cmath>
#include <string>

#include "specfun/specfun.h"

namespace kalvex::specfun {

/// Returns the degree, of any magnitude. Throws "Domain error in NAME" for a degree that is not
/// integral or is below `least`.
[[nodiscard]] inline double IntegralDegree(double degree, double least, const char* name) {
    if (!std::isfinite(degree) || std::floor(degree) != degree || degree < least) {
        throw ap::ap_error{std::string("Domain error in ") + name};
    }
    return degree;
}

}  // namespace kalvex::specfun
