// A point file as an argument.
#pragma once

#include <optional>
#include <string>

#include "interp/point_file.h"

namespace kalvex {

/// Reads a point file; when that fails, the message of the windows goes to standard error.
[[nodiscard]] std::optional<PointTable> ReadTable(const std::string& path);

}  // namespace kalvex
