// The pixels of an axis at which whole units lie. Grid, ticks and coordinate numbers stand there.
#pragma once

#include <cstdint>
#include <vector>

#include "graph/viewport.h"

namespace kalvex {

/// Positions origin -+ k * units * scale in pixels, k = 0, 1, 2, ... converted to a double each
/// time, never accumulated.
struct AxisLadder {
    double origin = 0.0;  ///< pixel of world 0, finite
    double units = 1.0;   ///< world units between two rungs, a whole number above 0
    double scale = 0.0;   ///< pixels per unit, above 0
};

struct AxisMark {
    double k = 0.0;          ///< the first rung on this pixel
    std::int32_t pixel = 0;  ///< its position, truncated toward zero
    double position = 0.0;
};

/// Rungs k >= first while origin - k * units * scale > 0, in order of k. Those at `end` or beyond
/// are left out; rungs that fall on one pixel give one mark. The work is bounded by `end`, however
/// many rungs there are.
[[nodiscard]] std::vector<AxisMark> MarksTowardZero(const AxisLadder& ladder, double first,
                                                    std::int32_t end);

/// Rungs k >= first while origin + k * units * scale < end. Those before pixel 0 are left out (a
/// position between -1 and 0 is pixel 0).
[[nodiscard]] std::vector<AxisMark> MarksAwayFromZero(const AxisLadder& ladder, double first,
                                                      std::int32_t end);

/// The ladders of both axes at one unit per rung; scales by their magnitude.
[[nodiscard]] AxisLadder LadderX(const ViewWindow& view);
[[nodiscard]] AxisLadder LadderY(const ViewWindow& view);

/// The smallest whole number of units that lie more than ten pixels apart.
[[nodiscard]] double GridStep(double scale);

/// Whether the background layers can be drawn: origins finite, scales and grid steps finite and
/// not zero.
[[nodiscard]] bool HasUsableMapping(const ViewWindow& view);

}  // namespace kalvex
