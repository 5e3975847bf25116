// Picture files of lines and texts instead of pixels.
#pragma once

#include "base/complete_file.h"
#include "graph/draw_list.h"

namespace kalvex {

/// Hands an SVG drawing whose unit is the logical pixel to `take`. False for a picture without
/// pixels, when Qt cannot draw it, and when `take` fails.
[[nodiscard]] bool MakeSvg(const DrawList& list, const TakeBytes& take);

/// Hands a PDF page of the picture's size at 96 pixels per inch to `take`, with the same failures.
[[nodiscard]] bool MakePdf(const DrawList& list, const TakeBytes& take);

}  // namespace kalvex
