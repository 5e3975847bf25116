// Marks of an axis at 1, 2 or 5 times a power of ten. They stand at the right pixels however narrow
// the window is and however far from zero: a mark is a whole multiple of the step, and its position
// is computed from the bounds of the picture instead of from the origin.
#pragma once

#include <cstdint>
#include <vector>

#include "graph/viewport.h"

namespace kalvex {

/// digit 10^exponent, where the digit is 1, 2 or 5.
struct NiceStep {
    int digit = 1;
    int exponent = 0;
    friend bool operator==(const NiceStep&, const NiceStep&) = default;
};

/// The next larger step.
[[nodiscard]] NiceStep NextStep(const NiceStep& step);

/// One axis of the picture.
struct AxisSpan {
    double from = 0.0;        ///< world coordinate at position 0
    double to = 0.0;          ///< world coordinate at position `pixels`
    std::int32_t pixels = 0;  ///< size of the picture along the axis
    double origin = 0.0;      ///< position of world 0, as the axes have it
};

[[nodiscard]] AxisSpan SpanX(const Viewport& viewport);
[[nodiscard]] AxisSpan SpanY(const Viewport& viewport);

struct NiceMark {
    std::int64_t k = 0;     ///< the mark stands at k steps
    double position = 0.0;  ///< at least 0 and less than `pixels`
};

/// The smallest step of which at most eight fit into the span; the one before it when it fits no
/// more than four times and the other no more than ten. The length of the span must be above 0 and
/// finite.
[[nodiscard]] NiceStep StepFor(const AxisSpan& span);

/// The pixels from one mark to the next.
[[nodiscard]] double SpacingOf(const AxisSpan& span, const NiceStep& step);

/// The marks on the picture, in order of k. None when the bounds are equal or not finite, or when
/// there are more marks than pixels.
[[nodiscard]] std::vector<NiceMark> MarksAt(const AxisSpan& span, const NiceStep& step);

}  // namespace kalvex
