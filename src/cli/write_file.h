// Files that the tool writes.
#pragma once

#include <string>
#include <string_view>

#include "cli/exit_status.h"

namespace kalvex {

/// Writes a file as a whole. When that fails, a file that was there before is unchanged and
/// standard error has a message.
/// @param what names the contents in the message: "report", "table"
[[nodiscard]] ExitStatus WriteFile(const std::string& path, std::string_view bytes,
                                   const std::string& what);

}  // namespace kalvex
