// The gate that every command passes: short cuts, soft keys, menus, timers, close buttons, and the
// actions that assistive technology performs on a control. Qt keeps keyboard and pointer from a
// window behind a dialog. It does not stop the other ways, which call the control directly.
#pragma once

class QWidget;

namespace kalvex {

/// Whether a message box or a dialog is open over the main windows.
[[nodiscard]] bool IsAnythingOpen();

/// Whether a command of a window may run now: the window is on the screen, and no message box or
/// dialog is open in front of it. `widget` is the window or a control in it.
[[nodiscard]] bool MayRun(const QWidget& widget);

/// Closes everything that is open over the main windows, from the front to the back: popups, and
/// dialogs and message boxes by their Cancel or their only button. What waits for the answer of one
/// of them runs before this returns.
void CloseWhatIsOpen();

}  // namespace kalvex
