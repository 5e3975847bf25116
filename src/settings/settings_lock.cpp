// The settings file itself is replaced by every write, so a lock on it would be lost.
#include "settings/settings_lock.h"

#include <sys/file.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace kalvex {
namespace {

namespace fs = std::filesystem;

/// The file beside the settings file. Where it must not be written, reading is enough for a lock.
Descriptor OpenLockFile(const std::string& path) {
    constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor file(open(path.c_str(), kFlags | O_RDWR | O_CREAT, 0600));
    if (!file.IsOpen()) file = Descriptor(open(path.c_str(), kFlags | O_RDONLY));
    file.LeaveStandardNumbers();
    return file;
}

Descriptor OpenFolder(const std::string& path) {
    Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    folder.LeaveStandardNumbers();
    return folder;
}

}  // namespace

std::string RealPathOf(const std::string& path) {
    constexpr int kMostLinks = 40;  // as many as Linux follows
    std::error_code failed;
    // A link whose target does not exist is followed here, because the target will be made.
    fs::path at = path;
    for (int i = 0; i < kMostLinks && fs::is_symlink(at, failed); ++i)
        at = at.parent_path() / fs::read_symlink(at, failed);
    const fs::path real = fs::weakly_canonical(at, failed);
    return failed ? path : real.native();
}

LockAnswer LockSettings(const std::string& path, Descriptor& lock) {
    const std::string real = RealPathOf(path);
    const fs::path folder = fs::path(real).parent_path();
    std::error_code ignored;  // the lock below fails then
    fs::create_directories(folder, ignored);
    lock = OpenLockFile(real + ".lock");
    if (!lock.IsOpen()) lock = OpenFolder(folder.native());
    if (lock.IsOpen() && flock(lock.Number(), LOCK_EX | LOCK_NB) == 0) return LockAnswer::Got;
    const bool busy = lock.IsOpen() && errno == EWOULDBLOCK;
    lock.Close();
    return busy ? LockAnswer::Busy : LockAnswer::Impossible;
}

}  // namespace kalvex
