// Where a desktop keeps the settings of its programs.
#pragma once

#include <string>

namespace kalvex {

/// The user's configuration folder, byte by byte as it is named: a folder's name need not be UTF-8.
[[nodiscard]] std::string ConfigFolder();

}  // namespace kalvex
