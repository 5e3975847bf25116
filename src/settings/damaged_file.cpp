// The copy is a second name for the same file, which needs no room on the disk and is there at
// once. The bytes are copied only where that is impossible: on file systems without such names, and
// for a link to a file on another disk.
#include "settings/damaged_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/complete_file.h"
#include "base/read_file.h"

namespace kalvex {
namespace {

constexpr int kMostNumbers = 1000;
constexpr std::size_t kMostBytes = std::size_t{1} << 28;

bool CopyBytes(const std::string& path, const std::string& copy) {
    const FileContents contents = ReadWholeFile(path, kMostBytes);
    return contents.exists && contents.failure.empty() && contents.isWhole &&
           WriteCompleteFile(copy, contents.bytes);
}

}  // namespace

std::string KeepDamagedFile(const std::string& path) {
    for (int number = 1; number <= kMostNumbers; ++number) {
        std::string copy = path + ".damaged-" + std::to_string(number);
        struct stat facts {};
        if (lstat(copy.c_str(), &facts) == 0) continue;
        if (linkat(AT_FDCWD, path.c_str(), AT_FDCWD, copy.c_str(), AT_SYMLINK_FOLLOW) == 0)
            return copy;
        if (errno == EEXIST) continue;
        return CopyBytes(path, copy) ? copy : std::string();
    }
    return {};
}

}  // namespace kalvex
