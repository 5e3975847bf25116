// Folders are found relative to the program file, so that an installation can be moved. For
// bin/kalvex they are in share/kalvex; for src/cli/kalvex-cli in a build tree they are at the top
// of the tree.
#include "resources/data_folders.h"

#include <system_error>

namespace kalvex {

std::vector<std::filesystem::path> DataFolders(std::string_view name) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return {};
    const std::filesystem::path folder = program.parent_path().parent_path();
    return {folder / "share/kalvex" / name, folder.parent_path() / name};
}

}  // namespace kalvex
