// Where the files that come with the program lie.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace kalvex {

/// The folders of a name ("samples", "help") to look into, best first: beside the installed
/// program, then in its build tree, wherever those are. They need not exist. None when the
/// program's own place cannot be found out.
std::vector<std::filesystem::path> DataFolders(std::string_view name);

}  // namespace kalvex
