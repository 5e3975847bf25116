// The menus as plain tables. Words are exact, blanks and spelling included.
#pragma once

#include <string_view>
#include <vector>

#include "resources/command_ids.h"

namespace kalvex {

/// A command, a submenu (it has children) or a separator (neither number nor text).
struct MenuEntry {
    CommandId id = CommandId::None;
    std::u16string_view text;  ///< lives as long as the program
    std::vector<MenuEntry> children;
};

using Menu = std::vector<MenuEntry>;

/// Menu of the soft key "Menu" of the editor. It always holds "Approx. type", which shows only for
/// a `File` line.
[[nodiscard]] Menu MainMenu();

/// Menu of the graph window.
[[nodiscard]] Menu GraphMenu();

/// Popup of a held pen in full-screen mode.
[[nodiscard]] Menu FullScreenPopup();

/// `Export` of a report in a single text.
[[nodiscard]] Menu ExportMenu();

/// `Export` of a report in pages: the same and an entry of its own.
[[nodiscard]] Menu ExportMenuOfPages();

}  // namespace kalvex
