// The question how large a picture is saved.
#pragma once

#include <functional>

#include "base/flow.h"
#include "commands/picture_size.h"

class QWidget;

namespace kalvex {

/// Asks how many pixels the picture shall have; shows the last choice. When it is saved, the choice
/// goes into `size` and `chosen` runs; sizes that cannot be made are refused by a box. Returns at
/// once.
void OpenPictureSizeDialog(QWidget* parent, const PixelSize& seen, PictureSize& size,
                           const ShowBox& show, std::function<void()> chosen);

}  // namespace kalvex
