// Files that the tool writes.
#pragma once

#include <string>
#include <string_view>

#include "base/complete_file.h"
#include "cli/exit_status.h"

namespace kalvex {

/// Writes the argument of an option -o: a file as a whole, or a stream. "-" is standard output, as
/// is /dev/stdout. After a failure a file that was there before is unchanged and standard error has
/// a message with the reason.
/// @param path is taken byte by byte as it is
/// @param what names the contents in the message: "report", "table"
[[nodiscard]] ExitStatus WriteFile(const std::string& path, const FillFile& fill,
                                   const std::string& what);

/// Writes the given bytes in the same way.
[[nodiscard]] ExitStatus WriteFile(const std::string& path, std::string_view bytes,
                                   const std::string& what);

/// Whether the argument of an option -o names standard output.
[[nodiscard]] bool IsStandardOutput(const std::string& path);

}  // namespace kalvex
