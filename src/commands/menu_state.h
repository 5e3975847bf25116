// What the main menu shows when it pops up: texts, enabling and check marks, as data.
#pragma once

#include <map>
#include <optional>
#include <string_view>

#include "resources/command_ids.h"
#include "workspace/function_entry.h"

namespace kalvex {

struct MenuItemState {
    std::u16string_view text;
    bool enabled = true;
    bool checked = false;
    bool visible = true;
    friend bool operator==(const MenuItemState&, const MenuItemState&) = default;
};

/// The state of every entry of the main menu that has a command number.
using MainMenuState = std::map<CommandId, MenuItemState>;

/// What the state depends on.
struct MenuContext {
    std::optional<int> focusedSlot;  ///< index 0..8; none when no line has the focus
    bool lineEmpty = true;           ///< whether the focused edit line holds nothing
    std::u16string_view platform;    ///< the platform type
};

/// The menu before it first pops up: words of the table, "Approx. type" hidden.
[[nodiscard]] MainMenuState InitialMainMenu();

/// Brings the state up to date for a popup. Without a focused line only `File` and `Unselect All`
/// are touched; everything else keeps what it showed last.
void UpdateMainMenu(MainMenuState& menu, const FunctionList& functions, const MenuContext& context);

}  // namespace kalvex
