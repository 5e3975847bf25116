// A second file for what would be lost.
#pragma once

#include <string>

namespace kalvex {

/// Keeps what a file holds under its path with ".damaged-1" behind it, or with the first higher
/// number that no file has. Returns the path of the copy; empty when it could not be made.
[[nodiscard]] std::string KeepDamagedFile(const std::string& path);

}  // namespace kalvex
