// Bitmap files.
#pragma once

#include <QImage>

#include "base/complete_file.h"

namespace kalvex {

/// Hands a bitmap file of 24 bits per pixel with rows from the bottom up to `take`. Its header
/// differs from other programs': the file-size field is always 54, and the size of the pixel data
/// is that of a width rounded up to a multiple of four pixels. False for a picture without pixels,
/// when memory is too short to convert a row, and when `take` fails.
[[nodiscard]] bool MakeBitmap(const QImage& picture, const TakeBytes& take);

}  // namespace kalvex
