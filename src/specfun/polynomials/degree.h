// The degree of a polynomial, tested.
#pragma once

#include <cmath>
#include <string>

#include "specfun/specfun.h"

namespace kalvex::specfun {

/// The degree, of any magnitude. Throws "Domain error in NAME" for one that is not integral or is
/// below `least`.
inline double IntegralDegree(double degree, double least, const char* name) {
    if (!std::isfinite(degree) || std::floor(degree) != degree || degree < least) {
        throw ap::ap_error{std::string("Domain error in ") + name};
    }
    return degree;
}

}  // namespace kalvex::specfun
