// The degree of a polynomial, tested.
#pragma once

#include <cmath>
#include <string>

#include "base/truncate.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {

/// The degree as an integer. Throws "Domain error in NAME" for one that is not integral or is
/// below `least`, and "NAME: the degree is too large" beyond MaxOrder.
inline int IntegralDegree(double degree, double least, const char* name) {
    if (!std::isfinite(degree) || std::floor(degree) != degree || degree < least) {
        throw ap::ap_error{std::string("Domain error in ") + name};
    }
    if (std::fabs(degree) > MaxOrder) {
        throw ap::ap_error{std::string(name) + ": the degree is too large"};
    }
    return TruncateToInt32(degree);
}

}  // namespace kalvex::specfun
