// The factors of the leading terms of the Airy functions, as double-doubles.
#pragma once

#include <cmath>

#include "numbers/double_double.h"

namespace kalvex::specfun {

inline constexpr DoubleDouble kTwoThirds = {0.66666666666666663, 3.7007434154171883e-17};
inline constexpr DoubleDouble kInverseRootOfPi = {0.56418958354775628, 7.6677298065829406e-18};

struct Roots {
    DoubleDouble root;     ///< x^(1/2)
    DoubleDouble inverse;  ///< x^(-1/4), relative error below 2^-100
};

/// For x of 1 or more.
[[nodiscard]] inline Roots RootsOf(double x) {
    const double root = std::sqrt(x);
    const double inverse = 1 / std::sqrt(root);
    const double square = inverse * inverse;
    const double rest = std::fma(-root, root, x) * (0.5 * square);
    // A step of Newton's method: half of 1 - root inverse^2.
    const DoubleDouble product = TwoProduct(root, inverse);
    const double miss =
        (std::fma(-product.high, inverse, 1) - product.low * inverse) - rest * square;
    return {{root, rest}, {inverse, inverse * miss / 2}};
}

/// 2/3 x^(3/2), relative error below 2^-102. The result is not normalised: its low part may be two
/// units in the last place of the high part. So the exponential function of the high part need not
/// wait for it.
[[nodiscard]] inline DoubleDouble ZetaOf(double x, const Roots& roots) {
    const DoubleDouble power = TwoProduct(x, roots.root.high);
    const DoubleDouble zeta = TwoProduct(power.high, kTwoThirds.high);
    const double rest = power.low + x * roots.root.low;
    return {zeta.high, zeta.low + (power.high * kTwoThirds.low + rest * kTwoThirds.high)};
}

}  // namespace kalvex::specfun
