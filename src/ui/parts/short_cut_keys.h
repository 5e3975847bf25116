// The short cuts of the table, in windows, menus and tips.
#pragma once

#include <QString>
#include <functional>
#include <span>

#include "resources/short_cuts.h"

class QAction;
class QWidget;

namespace kalvex {

/// Makes every short cut of a table run its command in a window. A key that is held down runs it
/// once.
void AddShortCuts(QWidget& window, std::span<const ShortCut> table,
                  const std::function<void(CommandId)>& run);

/// Makes a menu entry show the keys of its command. The window reacts to them, not the menu.
void ShowKeys(QAction& action, std::span<const ShortCut> table, CommandId command);

/// The keys of a command as the user's desktop writes them, for a tip.
[[nodiscard]] QString KeysForTip(std::span<const ShortCut> table, CommandId command);

}  // namespace kalvex
