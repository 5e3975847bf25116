// What `Draw` does before the graph window opens.
#pragma once

#include "base/message_box.h"
#include "workspace/registry.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Prepares and stores the nine lines, stores the function settings, checks that something is
/// selected, reads and checks the point files. The first failure ends it with false; failures of
/// the store are silent.
bool RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowMessage& show);

}  // namespace kalvex
