// The path is walked component by component. The components still to come stand in reverse order in
// a list, to which the target of a symbolic link is added.
#include "base/write_target.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <string_view>
#include <vector>

#include "base/system_error.h"

namespace kalvex {
namespace {

constexpr int kMostLinks = 40;  // as many as Linux follows

#ifdef O_PATH
constexpr int kSearch = O_PATH;
#else
constexpr int kSearch = O_RDONLY;
#endif

struct Walk {
    Descriptor folder;
    std::vector<std::string> pending;
    int links = 0;
};

WriteTarget Failed(std::string reason) {
    WriteTarget target;
    target.failure = std::move(reason);
    return target;
}

/// Puts the components of a path before those that are still to come. The empty component behind a
/// slash at the end is kept as ".", because it asks for a folder.
void AddPath(Walk& walk, std::string_view path) {
    std::vector<std::string> parts;
    while (!path.empty()) {
        const std::size_t slash = path.find('/');
        if (slash != 0) parts.emplace_back(path.substr(0, slash));
        if (slash == path.npos) break;
        path.remove_prefix(slash + 1);
        if (path.empty()) parts.emplace_back(".");
    }
    walk.pending.insert(walk.pending.end(), parts.rbegin(), parts.rend());
}

bool Enter(Walk& walk, int from, const char* name) {
    walk.folder = Descriptor(openat(from, name, kSearch | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    walk.folder.LeaveStandardNumbers();
    return walk.folder.IsOpen();
}

/// Begins at the root or stays where the walk is.
bool Begin(Walk& walk, std::string_view path) {
    if (path.starts_with('/') && !Enter(walk, AT_FDCWD, "/")) return false;
    AddPath(walk, path);
    return true;
}

/// The number of an own open file, when the name stands in the folder that lists them; -1
/// otherwise.
int OwnDescriptor(const struct stat& folder, const std::string& name) {
    struct stat own {};
    if (stat("/proc/self/fd", &own) != 0) return -1;
    if (own.st_dev != folder.st_dev || own.st_ino != folder.st_ino || name.size() > 9) return -1;
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    return std::all_of(name.begin(), name.end(), isDigit) ? std::stoi(name) : -1;
}

/// The target of a link; empty with errno when it cannot be read.
std::string ReadLink(int folder, const std::string& name) {
    std::string text(65536, '\0');  // longer than any link
    const ssize_t length = readlinkat(folder, name.c_str(), text.data(), text.size());
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

/// Follows a link. Empty when that was possible, otherwise the reason why not.
std::string FollowLink(Walk& walk, const struct stat& folder, const std::string& name) {
    if (++walk.links > kMostLinks) return ReasonOf(ELOOP);
    // The target is read before the owner is looked at: whoever exchanges the link in between can
    // only put a link of his own there, which is then refused.
    const std::string text = ReadLink(walk.folder.Number(), name);
    if (text.empty()) return ReasonOf(errno);
    struct stat link {};
    if (fstatat(walk.folder.Number(), name.c_str(), &link, AT_SYMLINK_NOFOLLOW) != 0)
        return ReasonOf(errno);
    if (!MayFollowLink(folder, link.st_uid, geteuid()))
        return "a symbolic link of another user in a folder that everybody may write to";
    return Begin(walk, text) ? std::string() : ReasonOf(errno);
}

WriteTarget TargetAt(Walk& walk, const struct stat& folder, std::string name,
                     const struct stat& facts) {
    if (S_ISDIR(facts.st_mode)) return Failed(ReasonOf(EISDIR));
    if (S_ISFIFO(facts.st_mode) && !MayFollowLink(folder, facts.st_uid, geteuid()))
        return Failed("a pipe of another user in a folder that everybody may write to");
    WriteTarget target;
    target.kind = S_ISREG(facts.st_mode) ? TargetKind::OldFile : TargetKind::Device;
    target.folder = std::move(walk.folder);
    target.name = std::move(name);
    target.facts = facts;
    return target;
}

WriteTarget NewFileAt(Walk& walk, std::string name) {
    WriteTarget target;
    target.kind = TargetKind::NewFile;
    target.folder = std::move(walk.folder);
    target.name = std::move(name);
    return target;
}

WriteTarget OwnFile(int number) {
    WriteTarget target;
    target.kind = TargetKind::OpenDescriptor;
    target.number = number;
    return target;
}

}  // namespace

bool MayFollowLink(const struct stat& folder, uid_t linkOwner, uid_t self) {
    constexpr mode_t kShared = S_ISVTX | S_IWOTH;
    if ((folder.st_mode & kShared) != kShared) return true;
    return linkOwner == self || linkOwner == folder.st_uid;
}

WriteTarget FindWriteTarget(const std::string& path) {
    if (path.empty()) return Failed(ReasonOf(ENOENT));
    if (path.find('\0') != path.npos) return Failed(ReasonOf(EINVAL));
    Walk walk;
    if (path.front() != '/' && !Enter(walk, AT_FDCWD, ".")) return Failed(ReasonOf(errno));
    if (!Begin(walk, path)) return Failed(ReasonOf(errno));
    while (!walk.pending.empty()) {
        const std::string name = std::move(walk.pending.back());
        walk.pending.pop_back();
        const int at = walk.folder.Number();
        struct stat folder {};
        struct stat facts {};
        if (fstat(at, &folder) != 0) return Failed(ReasonOf(errno));
        if (fstatat(at, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) {
            if (errno == ENOENT && walk.pending.empty()) return NewFileAt(walk, name);
            return Failed(ReasonOf(errno));
        }
        if (S_ISLNK(facts.st_mode)) {
            const int number = walk.pending.empty() ? OwnDescriptor(folder, name) : -1;
            if (number >= 0) return OwnFile(number);
            const std::string failure = FollowLink(walk, folder, name);
            if (!failure.empty()) return Failed(failure);
        } else if (walk.pending.empty()) {
            return TargetAt(walk, folder, name, facts);
        } else if (!Enter(walk, at, name.c_str())) {
            return Failed(ReasonOf(errno));
        }
    }
    return Failed(ReasonOf(EISDIR));
}

}  // namespace kalvex
