// File lines whose method gives no curve, and the messages about them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/message_box.h"
#include "interp/diagnostic.h"

namespace kalvex {

/// A File line whose curve the last redraw could not compute. Its points are drawn, its samples are
/// undefined.
struct ApproxFailure {
    int slot = 0;  ///< 0-based
    Diagnostic diagnostic;
};

/// The lines that a redraw writes to standard error: those of each failure, in slot order.
[[nodiscard]] std::string FailureLines(std::span<const ApproxFailure> failures);

/// The message box of a diagnostic that has one of its own. The diagnostic must have one.
[[nodiscard]] MessageBox OwnBox(const Diagnostic& diagnostic);

/// The message boxes that Draw shows once, however often the picture is redrawn: first those of the
/// diagnostics that have one of their own, then one that names all functions concerned and the
/// reasons. Empty without a failure.
[[nodiscard]] std::vector<MessageBox> FailureBoxes(std::span<const ApproxFailure> failures);

}  // namespace kalvex
