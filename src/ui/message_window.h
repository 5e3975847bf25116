// Message boxes on the screen.
#pragma once

#include "base/message_box.h"

namespace kalvex {

/// Shows a box over the active window and returns when it has been answered. `Yes`/`No` boxes
/// answered by Escape or the close button count as `No`.
MessageAnswer ShowMessageWindow(const MessageBox& box);

/// Writes a box as one line to standard error: for moments when nobody can answer a window, such
/// as the end of the session. `Yes`/`No` boxes get `No`.
MessageAnswer WriteMessageLine(const MessageBox& box);

}  // namespace kalvex
