// What a path leads to when something is to be written there.
#pragma once

#include <sys/stat.h>

#include <string>

#include "base/descriptor.h"

namespace kalvex {

enum class TargetKind {
    None,           ///< nothing can be written there; `failure` says why
    NewFile,        ///< no file has this name yet
    OldFile,        ///< a regular file
    Device,         ///< a device, a pipe or a socket
    OpenDescriptor  ///< a descriptor of this process, as /dev/stdout and /proc/self/fd/3 name them
};

struct WriteTarget {
    TargetKind kind = TargetKind::None;
    Descriptor folder;     ///< the folder of the file; it can be searched, but not read
    std::string name;      ///< the name in that folder; no symbolic link
    struct stat facts {};  ///< of an old file or a device
    int number = -1;       ///< of an open descriptor
    std::string failure;
};

/// Follows a path, whose bytes are taken as they are, through its symbolic links. The links are
/// followed one by one with the folder held open, so nobody can exchange them meanwhile. A link
/// that `MayFollowLink` refuses and a circle of links give `None`.
[[nodiscard]] WriteTarget FindWriteTarget(const std::string& path);

/// Whether a symbolic link may be followed: in a sticky folder to which everybody may write, such
/// as /tmp, only the links of the user himself and those of the folder's owner. (Linux has the same
/// rule, fs.protected_symlinks, but it can be switched off.) The same holds for a named pipe.
[[nodiscard]] bool MayFollowLink(const struct stat& folder, uid_t linkOwner, uid_t self);

}  // namespace kalvex
