// PNG files.
#pragma once

#include <QImage>

#include "base/complete_file.h"

namespace kalvex {

/// Hands a PNG file to `take`, with a palette where the picture has at most 256 colours. The
/// picture's format must be RGB32. False for a picture without pixels, when memory is too short for
/// the encoder, and when `take` fails.
[[nodiscard]] bool MakePng(const QImage& picture, const TakeBytes& take);

}  // namespace kalvex
