// What a new user finds in the nine lines.
#pragma once

#include <string_view>

#include "workspace/workspace.h"

namespace kalvex {

/// The workspace of a first start: the defaults with example lines, one of each equation type, and
/// a line left empty. No example needs more room than the store has: the `File` line, which shows
/// the given point file, is left empty when the path is too long for it (or empty).
Workspace ExampleWorkspace(std::u16string_view pointFile = {});

}  // namespace kalvex
