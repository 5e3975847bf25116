// The progress of a long drawing, and the way to stop it.
#pragma once

#include <cstdint>
#include <functional>

#include "workspace/function_entry.h"

namespace kalvex {

/// A part of the progress bar, which covers rows 0 to 3 of the picture: columns first..last.
struct ProgressStretch {
    std::int32_t firstColumn = 0;
    std::int32_t lastColumn = 0;
    Rgb color;
};

/// Called with each new part of the progress bar: after every pixel row of an implicit curve, and
/// from time to time while the samples of another curve are computed. When it returns false, the
/// drawing is stopped.
using DrawProgress = std::function<bool(const ProgressStretch&)>;

}  // namespace kalvex
