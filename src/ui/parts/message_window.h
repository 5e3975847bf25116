// Message boxes on the screen.
#pragma once

#include <QString>

#include "base/message_box.h"

namespace kalvex {

/// A text as a box shows it: an overlong word can be broken (zero-width spaces), of a line over 400
/// characters the middle is left out. Every other text stays as it is.
[[nodiscard]] QString ShowableText(const QString& text);

/// Shows a box over the active window and returns when it has been answered. `Yes`/`No` boxes
/// answered by Escape or the close button count as `No`.
[[nodiscard]] MessageAnswer ShowMessageWindow(const MessageBox& box);

}  // namespace kalvex
