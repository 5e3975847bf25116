// A picture as a file of any of the formats.
#pragma once

#include <QString>
#include <optional>

#include "graph/draw_list.h"

namespace kalvex {

enum class PictureFormat { Bmp, Png, Svg, Pdf };

/// The format that a name's ending says (".bmp", ".png", ".svg", ".pdf", in any case); nothing for
/// any other name.
std::optional<PictureFormat> PictureFormatOf(const QString& path);

/// Writes the picture at one pixel per logical pixel. False when the file cannot be written.
bool WritePicture(const QString& path, const DrawList& list, PictureFormat format);

}  // namespace kalvex
