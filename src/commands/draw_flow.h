// What `Draw` does before the graph window opens.
#pragma once

#include <functional>

#include "base/flow.h"
#include "settings/registry.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Prepares all nine lines for drawing, in slot order: texts, normalising, checking, compiling,
/// then storing the line as typed under `equ`; at last `storeMore` stores what belongs to them, if
/// it is there. Each step waits until the boxes before it have been answered. What is stored
/// between two boxes is one batch. `done` runs last, with true when all of it has passed. The first
/// failure ends it with false, silently when a value could not be stored; so does the end of the
/// program. Slots after a failed one stay as they were; a store that writes in batches may fail
/// only after all of them have been prepared.
Flow PrepareFunctions(FunctionList& functions, EditorLines lines, Registry registry, ShowBox show,
                      std::function<bool()> storeMore, std::function<void(bool passed)> done);

/// Prepares and stores the nine lines, stores the function settings, checks that something is
/// selected, reads and checks the point files; then `done` runs, with true when all of it has
/// passed. The first failure ends it with false; failures of the store are silent. What is stored
/// before the first box appears in a file at once. `workspace` must live as long as the flow.
void RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowBox& show,
                 std::function<void(bool ready)> done);

}  // namespace kalvex
