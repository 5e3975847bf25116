// Most defaults are the initial values of the records; only what depends on the slot is set here.
#include "workspace/defaults.h"

namespace kalvex {

FunctionEntry DefaultEntry(int slot) {
    FunctionEntry entry;
    entry.type = EquationType::Decart;
    entry.color = slot + 1;
    return entry;
}

Workspace DefaultWorkspace() {
    Workspace workspace;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        workspace.functions[static_cast<std::size_t>(slot)] = DefaultEntry(slot);
    }
    return workspace;
}

}  // namespace kalvex
