// The settings store of a desktop: an INI file.
#pragma once

#include <string>

#include "settings/registry.h"

namespace kalvex {

/// kalvex/kalvex.ini in the user's configuration folder.
[[nodiscard]] std::string DefaultRegistryPath();

/// The store in an INI file at a path (UTF-8). The file is made by the first write; every write is
/// on the disk when it returns, and a failed one leaves the old file as it was.
[[nodiscard]] Registry OpenRegistryFile(const std::string& path);

}  // namespace kalvex
