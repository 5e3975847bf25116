// Everything is looked for from the program's own place, so that a moved installation keeps its
// files: bin/kalvex has them in share/kalvex, src/cli/kalvex-cli of a build tree at its top.
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
