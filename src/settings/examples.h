// What a new user finds in the nine lines.
#pragma once

#include <string_view>

#include "workspace/workspace.h"

namespace kalvex {

/// The workspace of a first start: the defaults with example lines, one of each equation type, and
/// an empty line. Every example is short enough to be stored. The `File` line shows the given point
/// file; it is left empty when the path is empty or too long to be stored.
[[nodiscard]] Workspace ExampleWorkspace(std::u16string_view pointFile = {});

}  // namespace kalvex
