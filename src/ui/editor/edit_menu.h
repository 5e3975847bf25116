// What the popup menu does to an edit line.
#pragma once

#include <functional>

#include "commands/menu_state.h"
#include "resources/menus.h"

class QMenu;
class QWidget;

namespace kalvex {

class LineEdit;

/// How an entry of the popup shows for a line: a text command is enabled when it would have an
/// effect, every other entry always.
[[nodiscard]] MenuItemState EditEntryState(const LineEdit& line, const MenuEntry& entry);

/// Inserts a function name in place of the selection or at the caret, or runs a text command. Every
/// change is one step of undo. False for any other command.
bool RunEditCommand(LineEdit& line, CommandId command);

/// Makes the popup of a line without showing it; it deletes itself when it closes. Commands that
/// the line cannot run go to `runOther`.
[[nodiscard]] QMenu* NewEditMenu(QWidget* window, LineEdit& line,
                                 std::function<void(CommandId)> runOther);

}  // namespace kalvex
