// Short cuts on the screen from their table.
#pragma once

#include <QString>
#include <functional>
#include <span>

#include "resources/short_cuts.h"

class QAction;
class QWidget;

namespace kalvex {

/// Makes every short cut of a table run its command in a window. A held key is one command, not
/// many.
void AddShortCuts(QWidget& window, std::span<const ShortCut> table,
                  const std::function<void(CommandId)>& run);

/// Makes a menu entry show the keys of its command. The menu itself never reacts to them.
void ShowKeys(QAction& action, std::span<const ShortCut> table, CommandId command);

/// The keys of a command as the user's desktop writes them, for a tip.
QString KeysForTip(std::span<const ShortCut> table, CommandId command);

}  // namespace kalvex
