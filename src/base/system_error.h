// What the system says about a call that failed.
#pragma once

#include <string>

namespace kalvex {

/// The text of an error number of the system in English, whatever the locale: "No space left on
/// device".
[[nodiscard]] std::string ReasonOf(int errorNumber);

/// Whether an error number only says that a file system does not have a facility, such as syncing
/// a folder or storing an attribute, or does not let this user use it.
[[nodiscard]] bool IsUnsupported(int errorNumber);

}  // namespace kalvex
