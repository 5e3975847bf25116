// Stirling's series for the beta function (DLMF 5.11.1).
#pragma once

#include "numbers/double_double.h"

namespace kalvex::specfun {

inline constexpr DoubleDouble kHalfLnTwoPi = {0.91893853320467278, -3.8782941580672414e-17};
inline constexpr double kLeastForStirling = 10;

/// ln Gamma(x) - ((x-1/2) ln x - x + ln(2 pi)/2) for x of 10 or more, error below 2e-18.
[[nodiscard]] inline double StirlingCorrection(double x) {
    const double r = 1 / x;
    const double s = r * r;
    const double tail = 1.0 / 1188 - s * (691.0 / 360360 - s * (1.0 / 156 - s * (3617.0 / 122400)));
    return r * (1.0 / 12 - s * (1.0 / 360 - s * (1.0 / 1260 - s * (1.0 / 1680 - s * tail))));
}

}  // namespace kalvex::specfun
