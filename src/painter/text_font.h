// The font of the texts on the picture.
#pragma once

#include <QFont>

namespace kalvex {

/// The platform's sans-serif font at a character height in logical pixels (1 at least).
[[nodiscard]] QFont PictureFont(int height);

}  // namespace kalvex
