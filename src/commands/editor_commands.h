// The commands of the main window, by number.
#pragma once

#include <functional>
#include <optional>

#include "resources/command_ids.h"
#include "workspace/workspace.h"

namespace kalvex {

/// What a command acts on and whom it tells.
struct EditorState {
    Workspace& workspace;
    std::optional<int> slot;          ///< index of the line with the focus
    bool menuOpen = false;            ///< cleared by the commands 32772 to 32785
    std::function<void()> showLines;  ///< a label, a selection or a text has changed
    std::function<void()> draw;
    std::function<void()> exit;
    std::function<void(int slot)> choosePointFile;  ///< asks for the file of a line
    std::function<void(int slot)> setMethodUp;      ///< opens the dialog of its method, if any
    std::function<void()> openOptions;
    std::function<void()> openCalculator;
};

/// Runs one command. Commands of a line do nothing without a focused line. False for a number
/// that is no command of this window.
bool RunCommand(EditorState& state, CommandId command);

}  // namespace kalvex
