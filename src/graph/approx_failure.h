// File lines whose method gives no curve, and how that is told.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/message_box.h"
#include "interp/diagnostic.h"

namespace kalvex {

/// What a redraw met at one line. Its points are drawn, its samples are undefined.
struct ApproxFailure {
    int slot = 0;  ///< 0-based
    Diagnostic diagnostic;
};

/// What goes to standard error once per redraw: the lines of each failure in slot order.
std::string FailureLines(std::span<const ApproxFailure> failures);

/// The box that a routine has of its own; only for a diagnostic with one.
MessageBox OwnBox(const Diagnostic& diagnostic);

/// What is shown once per Draw, not per redraw: the boxes that the routines themselves have, then
/// one box that names all functions concerned and the reasons. Empty without a failure.
std::vector<MessageBox> FailureBoxes(std::span<const ApproxFailure> failures);

}  // namespace kalvex
