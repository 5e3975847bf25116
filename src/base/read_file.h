// Whole files as bytes.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <string>

namespace kalvex {

struct FileContents {
    bool exists = false;
    std::string failure;  ///< why a file that exists could not be read; empty when it was
    std::string bytes;
    bool isWhole = true;   ///< false when the file is longer than what was to be read of it
    struct stat facts {};  ///< of the file, when it could be opened
};

/// Reads a regular file up to a number of bytes. A path that leads to nothing, because a name or a
/// folder is missing, gives a file that does not exist. Anything else, also a folder, a device or a
/// pipe, gives a file that exists; all but a regular file are a failure. Never waits for a pipe.
[[nodiscard]] FileContents ReadWholeFile(const std::string& path, std::size_t mostBytes);

}  // namespace kalvex
