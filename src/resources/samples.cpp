// Everything is looked for from the program's own place, so that a moved installation keeps its
// samples: bin/kalvex has them in share/kalvex/samples, src/cli/kalvex-cli of a build tree in
// samples.
#include "resources/samples.h"

#include <filesystem>
#include <system_error>

namespace kalvex {

std::string SamplePath(std::string_view name) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return {};
    const std::filesystem::path folder = program.parent_path().parent_path();
    for (const std::filesystem::path& samples :
         {folder / "share/kalvex/samples", folder.parent_path() / "samples"}) {
        const std::filesystem::path path = samples / name;
        if (std::filesystem::is_regular_file(path, error)) return path.string();
    }
    return {};
}

}  // namespace kalvex
