// One running program for each settings file.
#pragma once

#include <string>

#include "base/descriptor.h"

namespace kalvex {

enum class LockAnswer {
    Got,
    Busy,       ///< another process has it
    Impossible  ///< there is no lock where the file is
};

/// Locks a settings file for this process: as long as `lock` is open, nobody else gets the lock,
/// under whatever name and in whatever session. The system releases it when the process ends in
/// whatever way, so no lock is ever left behind.
///
/// The lock is one on a file beside the settings file ("PATH.lock", made when it is missing, never
/// removed), or on their folder where such a file cannot be opened. Where neither can be locked the
/// answer is Impossible, and `lock` is not open.
/// @param path of the settings file, which need not exist; its bytes are taken as they are
[[nodiscard]] LockAnswer LockSettings(const std::string& path, Descriptor& lock);

/// The path of a settings file without symbolic links, also when the file or its folder does not
/// exist.
[[nodiscard]] std::string RealPathOf(const std::string& path);

}  // namespace kalvex
