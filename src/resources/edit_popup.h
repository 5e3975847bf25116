// The popup menu of an edit line and what its entries insert.
#pragma once

#include <string>

#include "resources/menus.h"

namespace kalvex {

/// Function names to insert, text commands, help.
[[nodiscard]] Menu EditPopup();

/// What a command of the submenu `Function` puts into the line: the menu word and an opening
/// bracket. Empty for every other command.
[[nodiscard]] std::u16string InsertedText(CommandId command);

}  // namespace kalvex
