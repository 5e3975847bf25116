// Message boxes on the screen.
#pragma once

#include <QString>

#include "base/flow.h"

namespace kalvex {

/// A text as a box shows it: an overlong word can be broken (zero-width spaces), of a line over 400
/// characters the middle is left out. Every other text stays as it is.
[[nodiscard]] QString ShowableText(const QString& text);

/// Opens a box over the window in front and returns at once. `answered` runs when it has been
/// answered and has left the screen. `Yes`/`No` boxes that are closed by Escape, the close button
/// or CloseWhatIsOpen count as `No`. The box belongs to the window below it: when that is
/// destroyed, so is the box, and `answered` with it.
void OpenMessageWindow(const MessageBox& box, const TakeAnswer& answered);

}  // namespace kalvex
