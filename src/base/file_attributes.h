// What a file has besides its contents.
#pragma once

#include <sys/stat.h>

#include <string>

namespace kalvex {

/// Gives a new file the owner, group, permissions, access control list and extended attributes of
/// an old one. What this user or the file system does not allow is left out; when the group cannot
/// be kept, the new group gets no more than everybody. Empty on success, otherwise the reason of
/// the failure. Both files are open for writing; `facts` are those of the old one.
[[nodiscard]] std::string CopyAttributes(int oldFile, const struct stat& facts, int newFile);

}  // namespace kalvex
