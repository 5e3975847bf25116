// Implicit curves G(x, y) = 0, pixel by pixel, and as lines for smooth pictures.
#pragma once

#include "base/interruption.h"
#include "graph/contours.h"
#include "graph/draw_list.h"
#include "graph/draw_progress.h"
#include "graph/viewport.h"

namespace kalvex {

/// The columns that pixel row `row` adds to the progress bar. They may be none (the last is before
/// the first). On a picture more than twice as wide as high they may begin left of the picture.
[[nodiscard]] ProgressStretch StretchOfRow(std::int32_t row, std::int32_t width,
                                           std::int32_t height, const Rgb& color);

/// The pixels of G(x, y) = 0. A pixel belongs to the curve when the sign of G changes between the
/// middles of its left and right edges or of its upper and lower edges. A product of exactly 0
/// counts as a change, and so does an undefined value times a negative one. `progress`, which may
/// be empty, is called with each stretch that is not empty and may stop the curve, and so may
/// `interruption`, which may be null; the pixels found until then stay. Contours are added when an
/// accuracy is given for them and the curve was not stopped.
[[nodiscard]] PixelRunsRecord ImplicitPixels(const CompiledExpression& expression,
                                             const Viewport& viewport, const Rgb& color,
                                             const DrawProgress& progress,
                                             Interruption* interruption = nullptr,
                                             bool withContours = false);

}  // namespace kalvex
