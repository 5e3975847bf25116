// A walk along the contiguous relations cut into four stretches that take the same steps. Internal
// to the special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/lanes.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// Four equal stretches seldom make up the whole way. The steps left over are taken between the
/// stretches: spread over the three gaps, or all in the first or the last of them.
enum class LeftOver { kSpread, kFirst, kLast };

/// The steps that each of four stretches takes, and the parameters where each of them starts.
struct Stretches {
    std::array<double, 3> steps;
    std::array<HypergeometricParameters, kLanes> starts;
};

/// The stretches of a way of the given steps that starts at `from`.
[[nodiscard]] Stretches StretchesOf(const HypergeometricParameters& from,
                                    const std::array<double, 3>& all, LeftOver leftOver);

/// Steps divide by a, b, c, c-a and c-b. Whether one of these has the same sign at both ends of the
/// way, but another one or 0 at the end of a stretch.
[[nodiscard]] bool Crosses(const Stretches& stretches, const HypergeometricParameters& from,
                           const HypergeometricParameters& to);

/// The number of all steps.
[[nodiscard]] double Length(const std::array<double, 3>& steps);

}  // namespace kalvex::specfun
