// The commands of the nine lines, by number.
#pragma once

#include <optional>

#include "resources/command_ids.h"
#include "workspace/workspace.h"

namespace kalvex {

/// What a command depends on besides the workspace.
struct EditorState {
    std::optional<int> slot;  ///< index of the line with the focus
    bool menuOpen = false;    ///< cleared by the commands 32772 to 32785
};

/// What is left to the window when a command has changed the workspace.
enum class EditorStep {
    Nothing,
    ShowLines,        ///< a label, a selection or a text has changed
    ChoosePointFile,  ///< show the lines, then ask for the file of the line
    SetMethodUp,      ///< show the lines, then open the dialog of the line's method, if it has one
};

/// Runs a command of the lines and says what is left to do. A command of one line does nothing
/// without a focused line. No value for a command that does not belong to the lines.
[[nodiscard]] std::optional<EditorStep> RunEditorCommand(Workspace& workspace, EditorState& state,
                                                         CommandId command);

}  // namespace kalvex
