// Gamma function. The library's gamma function is not-a-number where it should overflow or vanish.
#include <cmath>
#include <limits>

#include "specfun/library_call.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

bool IsPole(double x) {
    return x <= 0 && std::floor(x) == x;
}

}  // namespace

double Gamma(double x) {
    constexpr double kOverflow = 171.7;
    constexpr double kVanishing = -180;  // the library works down to here
    if (x > kOverflow) return kInfinity;
    if (x >= kVanishing || std::isnan(x)) {
        return FromLibrary([x] { return alglib::gammafunction(x); });
    }
    if (IsPole(x)) return -kInfinity;
    const bool negative = std::fmod(std::floor(x), 2.0) != 0;
    return negative ? -0.0 : 0.0;
}

}  // namespace kalvex::specfun
