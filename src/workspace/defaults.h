// The values of everything that has never been stored.
#pragma once

#include "workspace/workspace.h"

namespace kalvex {

/// The entry of a slot (0..8): `Decart` in the slot's own colour, not selected, no text.
[[nodiscard]] FunctionEntry DefaultEntry(int slot);

/// Default entries and options, empty lines, the view -10..10 with factors 2.
[[nodiscard]] Workspace DefaultWorkspace();

}  // namespace kalvex
