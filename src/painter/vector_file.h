// Picture files of lines and texts instead of pixels.
#pragma once

#include <QString>

#include "graph/draw_list.h"

namespace kalvex {

/// Writes an SVG drawing whose unit is the logical pixel. False when the file cannot be written; a
/// file that was there before is then unchanged.
[[nodiscard]] bool WriteSvg(const QString& path, const DrawList& list);

/// Writes a PDF page of the picture's size at 96 pixels per inch.
[[nodiscard]] bool WritePdf(const QString& path, const DrawList& list);

}  // namespace kalvex
