// Files that exist only until they get the name of the file that they replace.
#pragma once

#include <sys/stat.h>

#include <string>

#include "base/descriptor.h"

namespace kalvex {

struct TemporaryFile {
    Descriptor file;
    std::string name;  ///< in its folder; always 28 bytes, however long the name to be replaced is
};

/// Makes an empty file in an open folder, for writing, locked as long as it is open. Not open, with
/// errno, when that is impossible.
[[nodiscard]] TemporaryFile MakeTemporaryFile(int folder, mode_t mode);

/// A name of the same form that no file is likely to have.
[[nodiscard]] std::string TemporaryName();

/// Whether a name has the form of those names.
[[nodiscard]] bool IsTemporaryName(const std::string& name);

/// Removes the temporary files of this user that a killed program left in a folder. A file that a
/// living process still has locked stays. Fails silently.
void RemoveLeftovers(const std::string& folder);

}  // namespace kalvex
