// Files that are written as a whole or not at all.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kalvex {

/// Takes the next bytes of a file. False when they could not be written.
using TakeBytes = std::function<bool(std::string_view bytes)>;

/// Hands the contents of a file to `take`, piece by piece. False when there are none, for example
/// because memory is short, or when a piece could not be written.
using FillFile = std::function<bool(const TakeBytes& take)>;

/// How writing a file ended. As a condition it is true when the file was written.
struct WriteResult {
    std::string failure;  ///< why it could not be written, in words; empty when it was
    explicit operator bool() const { return failure.empty(); }
};

/// Writes a new file, which `fill` fills, and replaces the old one by it only when all of it is on
/// the disk. Both the contents and the new name are synced, so a true result also survives a loss
/// of power. After a failure the old file is there as it was, or none if there was none. (Where the
/// file system has no second names for a file and does not sync its folder, the new file is there.)
///
/// The path is taken byte by byte as it is. Symbolic links to the file are followed and stay, if
/// they may be followed (`MayFollowLink`). The new file has the group, permissions, access control
/// list and extended attributes of the old one. A file that this user may not write to is not
/// replaced, nor is anything but a regular file: a folder, a device, a pipe.
[[nodiscard]] WriteResult WriteCompleteFile(const std::string& path, const FillFile& fill);

/// Writes the given bytes in the same way.
[[nodiscard]] WriteResult WriteCompleteFile(const std::string& path, std::string_view bytes);

/// As `WriteCompleteFile`, but a device, a pipe, and a file that this process has open under the
/// path (/dev/stdout, /dev/fd/3, or the file that standard output or standard error goes to) is
/// written to as a stream, at its present place, and never replaced. What a stream has taken before
/// a failure stays there.
[[nodiscard]] WriteResult WriteFileOrStream(const std::string& path, const FillFile& fill);

/// Writes to an open descriptor as a stream.
[[nodiscard]] WriteResult WriteStream(int number, const FillFile& fill);

}  // namespace kalvex
