// On Linux an access control list is an extended attribute. Attributes that describe the contents,
// such as signatures and capabilities, are not copied: the contents are new.
#include "base/file_attributes.h"

#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#include "base/system_error.h"

#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace kalvex {
namespace {

constexpr mode_t kGroupBits = S_IRWXG;
constexpr mode_t kAllBits = S_IRWXU | S_IRWXG | S_IRWXO;

/// Whether the new file has the group of the old one afterwards.
bool CopyOwner(const struct stat& facts, int newFile) {
    if (fchown(newFile, facts.st_uid, facts.st_gid) == 0) return true;
    return fchown(newFile, static_cast<uid_t>(-1), facts.st_gid) == 0;
}

/// Permissions of a file whose group is another one: the group may do what everybody may.
mode_t WithoutGroup(mode_t mode) {
    return (mode & ~kGroupBits) | ((mode & S_IRWXO) << 3 & mode);
}

#ifdef __linux__

constexpr char kAccessList[] = "system.posix_acl_access";

bool IsCopied(std::string_view name, bool groupKept) {
    if (name == kAccessList) return groupKept;
    return name.starts_with("user.") || name == "security.selinux";
}

std::vector<std::string> AttributeNames(int file) {
    const ssize_t size = flistxattr(file, nullptr, 0);
    std::string list(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    const ssize_t read = list.empty() ? 0 : flistxattr(file, list.data(), list.size());
    list.resize(read > 0 ? static_cast<std::size_t>(read) : 0);
    std::vector<std::string> names;
    for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1)
        names.emplace_back(list.c_str() + at);
    return names;
}

/// 0 or an error number.
int CopyAttribute(int oldFile, int newFile, const std::string& name) {
    const ssize_t size = fgetxattr(oldFile, name.c_str(), nullptr, 0);
    if (size < 0) return errno;
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t read = fgetxattr(oldFile, name.c_str(), value.data(), value.size());
    if (read < 0) return errno;
    const auto length = static_cast<std::size_t>(read);
    return fsetxattr(newFile, name.c_str(), value.data(), length, 0) == 0 ? 0 : errno;
}

/// A folder may give each new file an access control list of its own.
void RemoveAccessList(int file) {
    fremovexattr(file, kAccessList);
}

/// 0 or an error number.
int CopyNamedAttributes(int oldFile, int newFile, bool groupKept) {
    for (const std::string& name : AttributeNames(oldFile)) {
        if (!IsCopied(name, groupKept)) continue;
        const int error = CopyAttribute(oldFile, newFile, name);
        if (error != 0 && error != EACCES && !IsUnsupported(error)) return error;
    }
    return 0;
}

#else

void RemoveAccessList(int) {}

int CopyNamedAttributes(int, int, bool) {
    return 0;
}

#endif

}  // namespace

std::string CopyAttributes(int oldFile, const struct stat& facts, int newFile) {
    RemoveAccessList(newFile);
    const bool groupKept = CopyOwner(facts, newFile);
    const mode_t mode = facts.st_mode & kAllBits;
    if (fchmod(newFile, groupKept ? mode : WithoutGroup(mode)) != 0 && !IsUnsupported(errno))
        return ReasonOf(errno);
    const int error = CopyNamedAttributes(oldFile, newFile, groupKept);
    return error == 0 ? std::string() : ReasonOf(error);
}

}  // namespace kalvex
