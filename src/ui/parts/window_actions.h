// What a window of the program cannot do itself.
#pragma once

#include <functional>

#include "base/flow.h"
#include "resources/command_ids.h"

namespace kalvex {

/// What both windows, the editor and the graph, ask of the program.
struct WindowActions {
    /// Runs a command of the program: `File` asks for the file of the line with the focus,
    /// `Analyze` is about the traced function. False for a number that is no command. It is a
    /// function and not a signal because the answer is needed.
    std::function<bool(CommandId)> run;
    ShowBox show;
};

}  // namespace kalvex
