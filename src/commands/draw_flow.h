// What `Draw` does before the graph window opens.
#pragma once

#include "base/message_box.h"
#include "settings/registry.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Prepares all nine lines for drawing, in slot order: texts, normalising, checking, compiling,
/// storing the line as typed under `equ`. Messages go to `show`; the first failure ends it with
/// false, silently when the line could not be stored. Slots after a failed one stay as they were; a
/// store that writes in batches may fail only after all of them have been prepared.
[[nodiscard]] bool PrepareFunctions(FunctionList& functions, const EditorLines& lines,
                                    const Registry& registry, const ShowMessage& show);

/// Prepares and stores the nine lines, stores the function settings, checks that something is
/// selected, reads and checks the point files. The first failure ends it with false; failures of
/// the store are silent. What is stored before the first box appears in a file at once.
[[nodiscard]] bool RunDrawFlow(Workspace& workspace, const Registry& registry,
                               const ShowMessage& show);

}  // namespace kalvex
