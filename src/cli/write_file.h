// Files that the tool makes.
#pragma once

#include <string>
#include <string_view>

#include "cli/exit_status.h"

namespace kalvex {

/// Writes a file as a whole; when that fails an old one stays, and standard error says so.
/// @param what the file's contents in a word or two, for the message
ExitStatus WriteFile(const std::string& path, std::string_view bytes, const std::string& what);

}  // namespace kalvex
