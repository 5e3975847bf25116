// What a value is before anything was stored, and what a new user finds in the nine lines.
#pragma once

#include <string_view>

#include "workspace/workspace.h"

namespace kalvex {

/// The entry of a slot (0..8): `Decart` in the slot's own colour, not selected, no text.
FunctionEntry DefaultEntry(int slot);

/// Default entries and options, empty lines, the view -10..10 with factors 2.
Workspace DefaultWorkspace();

/// The workspace of a first start: the defaults with example lines, one of each equation type, and
/// a line left empty. No example needs more room than the store has: the `File` line, which shows
/// the given point file, is left empty when the path is too long for it (or empty).
Workspace ExampleWorkspace(std::u16string_view pointFile = {});

}  // namespace kalvex
