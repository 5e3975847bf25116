// A point file as an argument.
#pragma once

#include <optional>
#include <string>

#include "interp/point_file.h"

namespace kalvex {

/// Reads a point file; what the windows say when that fails goes to standard error.
std::optional<PointTable> ReadTable(const std::string& path);

}  // namespace kalvex
