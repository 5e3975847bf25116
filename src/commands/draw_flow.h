// What `Draw` does before the graph window opens.
#pragma once

#include <functional>

#include "base/flow.h"
#include "settings/registry.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Prepares all nine lines for drawing, in slot order: texts, normalising, checking, compiling,
/// then storing the line as typed under `equ`. Each step waits until the boxes before it have been
/// answered. `prepared` runs when all lines have passed. The first failure ends the flow before
/// that, silently when the line could not be stored; so does the end of the program. Slots after a
/// failed one stay as they were.
Flow PrepareFunctions(FunctionList& functions, EditorLines lines, Registry registry, ShowBox show,
                      std::function<void()> prepared);

/// Prepares and stores the nine lines, stores the function settings, checks that something is
/// selected, reads and checks the point files; then `ready` runs. The first failure ends the flow
/// before that; failures of the store are silent. `workspace` must live as long as the flow.
void RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowBox& show,
                 std::function<void()> ready);

}  // namespace kalvex
