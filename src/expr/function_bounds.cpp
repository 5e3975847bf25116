// Floor and magnitude are exact and piecewise monotone, so their values at the ends of an interval
// bound all values in between. The elementary functions are not known to be monotone to the last
// bit; for those that stay between fixed limits, limits a little wider than those are taken.
#include "expr/function_bounds.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

constexpr Bounds kAboutOne{-1.001, 1.001};

}  // namespace

MaybeBounds SineBounds(const Bounds* arguments) {
    if (!std::isfinite(arguments->low) || !std::isfinite(arguments->high)) return std::nullopt;
    return kAboutOne;
}

MaybeBounds SigmoidBounds(const Bounds*) {
    return kAboutOne;
}

MaybeBounds FloorBounds(const Bounds* arguments) {
    return Bounds{std::floor(arguments->low), std::floor(arguments->high)};
}

MaybeBounds MagnitudeBounds(const Bounds* arguments) {
    const double low = std::fabs(arguments->low);
    const double high = std::fabs(arguments->high);
    const bool hasZero = arguments->low <= 0.0 && arguments->high >= 0.0;
    return Bounds{hasZero ? 0.0 : std::min(low, high), std::max(low, high)};
}

}  // namespace kalvex
