// Menus on the screen from the tables.
#pragma once

#include <functional>
#include <span>

#include "commands/menu_state.h"
#include "resources/menus.h"
#include "resources/short_cuts.h"

class QMenu;

namespace kalvex {

using StateOfEntry = std::function<MenuItemState(const MenuEntry&)>;

/// Appends the entries of a table, submenus included. Every command carries its number as its
/// action's data; choosing it calls `run` with the number. Entries show their keys of the table.
void FillMenu(QMenu& menu, const Menu& entries, const StateOfEntry& stateOf,
              const std::function<void(CommandId)>& run, std::span<const ShortCut> keys = {});

}  // namespace kalvex
