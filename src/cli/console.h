// Input and output of the tool: texts come from an argument or standard input, results go to
// standard output, messages to standard error. All of it is UTF-8 in every locale.
#pragma once

#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

#include "base/message_line.h"
#include "cli/exit_status.h"

namespace kalvex {

/// Processes one text and returns the result.
using HandleText = std::function<ExitStatus(const std::u16string& text)>;

/// Processes the argument or, without one, each line of standard input (without its line feed, not
/// otherwise changed). Continues after a failure and returns the most serious status.
[[nodiscard]] ExitStatus ForEachText(const std::optional<std::string>& argument,
                                     std::istream& input, const HandleText& handle);

/// Writes to standard output. False when this or an earlier write failed: for results of many
/// lines, which end there.
[[nodiscard]] bool WriteOut(std::string_view text);

/// Writes one result to standard output. FinishOutput tells whether that failed.
void PrintText(std::string_view text);

/// The same, and flushes standard output: a run that is ended by a signal during the computation
/// that follows leaves complete lines.
bool WriteOutNow(std::string_view text);

/// Flushes standard output; NotWritten when anything could not be written.
[[nodiscard]] ExitStatus FinishOutput();

/// Shows a box as its line on standard error. A box of the normaliser whose text already has too
/// many tokens to be accepted is left out.
MessageAnswer ShowOnStandardError(const MessageBox& box);

}  // namespace kalvex
