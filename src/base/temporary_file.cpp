// A lock says that the program which writes a temporary file is alive. The system releases it when
// the program ends in whatever way. Unlike the number of a process it also holds between containers
// and between computers that share a folder.
#include "base/temporary_file.h"

#include <dirent.h>
#include <sys/file.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <vector>

namespace kalvex {
namespace {

constexpr std::string_view kBeginning = ".kalvex-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::size_t kDigits = 16;
constexpr int kMostTries = 100;

enum class Lock { Got, Held, None };

/// A file system without locks gives `None`.
Lock LockFile(int file) {
    if (flock(file, LOCK_EX | LOCK_NB) == 0) return Lock::Got;
    return errno == EWOULDBLOCK ? Lock::Held : Lock::None;
}

/// Whether a file that was just made still has its name and belongs to this process. In the moment
/// before it was locked, another program may have taken it for a leftover.
bool IsKept(int file) {
    if (LockFile(file) == Lock::Held) return false;
    struct stat facts {};
    return fstat(file, &facts) == 0 && facts.st_nlink > 0;
}

bool IsLeftover(int file) {
    struct stat facts {};
    if (fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
    const uid_t self = geteuid();
    return (facts.st_uid == self || self == 0) && LockFile(file) == Lock::Got;
}

std::vector<std::string> TemporaryNames(int folder) {
    std::vector<std::string> names;
    const int listed = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (listed < 0) return names;
    DIR* const list = fdopendir(listed);
    if (list == nullptr) {
        close(listed);
        return names;
    }
    while (const dirent* const entry = readdir(list))
        if (IsTemporaryName(entry->d_name)) names.emplace_back(entry->d_name);
    closedir(list);
    return names;
}

}  // namespace

std::string TemporaryName() {
    // Names need not be secret, because a file with the name is never opened or replaced.
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    std::uint64_t bits =
        static_cast<std::uint64_t>(now) + (static_cast<std::uint64_t>(getpid()) << 32);
    // The mixing steps of the SplitMix64 generator.
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9u;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBu;
    bits ^= bits >> 31;
    std::string name(kBeginning);
    for (std::size_t i = 0; i < kDigits; ++i, bits >>= 4)
        name += "0123456789abcdef"[bits & 15];
    return name.append(kEnd);
}

bool IsTemporaryName(const std::string& name) {
    if (name.size() != kBeginning.size() + kDigits + kEnd.size()) return false;
    const std::string digits = name.substr(kBeginning.size(), kDigits);
    return name.starts_with(kBeginning) && name.ends_with(kEnd) &&
           digits.find_first_not_of("0123456789abcdef") == digits.npos;
}

TemporaryFile MakeTemporaryFile(int folder, mode_t mode) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    for (int i = 0; i < kMostTries; ++i) {
        std::string name = TemporaryName();
        Descriptor file(openat(folder, name.c_str(), kFlags, mode));
        if (!file.IsOpen()) {
            if (errno == EEXIST || errno == EINTR) continue;
            return {};
        }
        file.LeaveStandardNumbers();
        if (file.IsOpen() && IsKept(file.Number())) return {std::move(file), std::move(name)};
        unlinkat(folder, name.c_str(), 0);
    }
    errno = EEXIST;
    return {};
}

void RemoveLeftovers(const std::string& folder) {
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen()) return;
    for (const std::string& name : TemporaryNames(opened.Number())) {
        constexpr int kFlags = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        const Descriptor file(openat(opened.Number(), name.c_str(), kFlags));
        if (file.IsOpen() && IsLeftover(file.Number())) {
            unlinkat(opened.Number(), name.c_str(), 0);
        }
    }
}

}  // namespace kalvex
