// The tool's two ends: texts come in from an argument or standard input, lines and messages go out.
// Everything is UTF-8, whatever the locale.
#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

#include "base/message_line.h"
#include "cli/exit_status.h"

namespace kalvex {

/// What is done with one text; says how it went.
using HandleText = std::function<ExitStatus(const std::u16string& text)>;

/// Hands over the argument or, without one, each line of the input in turn: without its line feed,
/// otherwise as it stands. Goes on after a failure and returns the gravest status.
ExitStatus ForEachText(const std::optional<std::string>& argument, std::istream& input,
                       const HandleText& handle);

/// Writes to standard output. False once anything could not be written.
bool WriteOut(std::string_view text);

/// Empties the buffer of standard output; NotWritten when not everything reached its target.
ExitStatus FinishOutput();

/// Shows a box as its line on standard error. A box of the normaliser whose text already has too
/// many tokens to be accepted is left out.
MessageAnswer ShowOnStandardError(const MessageBox& box);

}  // namespace kalvex
