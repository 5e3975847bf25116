// A walk along the contiguous relations cut into four stretches that take the same steps. Internal
// to the special functions.
#pragma once

#include <array>

#include "specfun/hypergeometric/lanes.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// What is left over when four stretches of the way take the same steps comes between them: spread
/// over the three places, or all together at the first or the last.
enum class LeftOver { kSpread, kFirst, kLast };

/// Four stretches of the way with the same steps, and where each of them starts.
struct Stretches {
    std::array<double, 3> steps;
    std::array<HypergeometricParameters, kLanes> starts;
};

/// For the given steps from `from`.
[[nodiscard]] Stretches StretchesOf(const HypergeometricParameters& from,
                                    const std::array<double, 3>& all, LeftOver leftOver);

/// Whether a, b, c, c-a or c-b, by which the steps divide, leaves the range between its values at
/// the two ends through 0.
[[nodiscard]] bool Crosses(const Stretches& stretches, const HypergeometricParameters& from,
                           const HypergeometricParameters& to);

/// The number of all steps.
[[nodiscard]] double Length(const std::array<double, 3>& steps);

}  // namespace kalvex::specfun
