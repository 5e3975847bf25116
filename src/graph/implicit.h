// Implicit curves G(x, y) = 0, pixel by pixel.
#pragma once

#include "graph/draw_list.h"
#include "graph/draw_progress.h"
#include "graph/viewport.h"

namespace kalvex {

/// Columns of the progress bar that pixel row `row` adds; may be empty (last before first) and, on
/// a picture more than twice as wide as high, start left of the picture.
ProgressStretch StretchOfRow(std::int32_t row, std::int32_t width, std::int32_t height,
                             const Rgb& color);

/// The pixels of G(x, y) = 0: those between whose left and right or upper and lower edge middles
/// the sign changes. A product of exactly 0 and an undefined value times a negative one count as a
/// change. `progress` is told each stretch that is not empty (may be an empty function) and may
/// stop the curve; what is done until then stays.
PixelRunsRecord ImplicitPixels(const CompiledExpression& expression, const Viewport& viewport,
                               const Rgb& color, const DrawProgress& progress);

}  // namespace kalvex
