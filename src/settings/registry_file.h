// The settings store of a desktop: an INI file.
#pragma once

#include <string>

#include "settings/registry.h"

namespace kalvex {

/// kalvex/kalvex.ini in the user's configuration folder.
[[nodiscard]] std::string DefaultRegistryPath();

/// The store in an INI file at a path, whose bytes are taken as they are. The file is made by the
/// first write. Every write, or every batch of writes, replaces it as a whole and is on the disk
/// when it returns; a failed one leaves the old file as it was.
///
/// A file that another program changes is read again. When it vanishes or is emptied, the store
/// keeps its values, and the next write makes the file again with all of them.
///
/// A file that exists and cannot be read is never written over: from then on the store fails at
/// everything. What is not understood of a file, or is too long, would be lost by the first write;
/// this write therefore first keeps the old file as "PATH.damaged-1" or the next free number, and
/// fails when that is impossible.
[[nodiscard]] Registry OpenRegistryFile(const std::string& path);

}  // namespace kalvex
