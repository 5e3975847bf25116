// A message box as a line of text: for the tool, and for the windows when nobody can answer them.
#pragma once

#include <string>

#include "base/message_box.h"

namespace kalvex {

/// The caption, ": " and the text in UTF-8, without a line feed at the end. Each line break in them
/// (line feed, carriage return, or both together) is written as the two characters \n.
[[nodiscard]] std::string MessageLine(const MessageBox& box);

/// Writes the line to standard error. `Yes`/`No` boxes get `No`: nobody is there to agree.
[[nodiscard]] MessageAnswer WriteMessageLine(const MessageBox& box);

}  // namespace kalvex
