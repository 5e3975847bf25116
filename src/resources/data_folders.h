// Where the files that come with the program lie.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace kalvex {

/// The folders in which files of a kind ("samples", "help") may be, in the order of preference:
/// that of the installed program, then that of its build tree. They need not exist. Empty when the
/// path of the program file is unknown.
[[nodiscard]] std::vector<std::filesystem::path> DataFolders(std::string_view name);

}  // namespace kalvex
