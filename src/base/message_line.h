// A message box as a line of text, for where no window can be shown.
#pragma once

#include <string>

#include "base/message_box.h"

namespace kalvex {

/// The caption, ": " and the text, as UTF-8 without a line end. Each line break of either (\n, \r
/// or the two together) is written as a backslash and the letter n.
std::string MessageLine(const MessageBox& box);

}  // namespace kalvex
