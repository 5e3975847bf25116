// The file is taken from the first folder that has it.
#include "resources/samples.h"

#include <filesystem>
#include <system_error>

#include "resources/data_folders.h"

namespace kalvex {

std::string SamplePath(std::string_view name) {
    for (const std::filesystem::path& samples : DataFolders("samples")) {
        const std::filesystem::path path = samples / name;
        std::error_code error;
        if (std::filesystem::is_regular_file(path, error)) return path.string();
    }
    return {};
}

}  // namespace kalvex
