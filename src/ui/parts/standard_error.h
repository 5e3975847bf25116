// Lines on standard error that never hold the windows up.
#pragma once

#include <string_view>

#include "base/message_box.h"

namespace kalvex {

/// Writes a text to standard error as far as that is possible without waiting. The rest is dropped:
/// when standard error is a pipe that is full because its reader has stopped reading, or a terminal
/// that is held. Uses no memory.
void WriteToStandardError(std::string_view text) noexcept;

/// As `WriteMessageLine`, but does not wait.
[[nodiscard]] MessageAnswer WriteMessageLineNow(const MessageBox& box);

}  // namespace kalvex
