// Loading and storing of all settings in the registry's own spellings, order and encodings.
#pragma once

#include <string_view>

#include "base/message_box.h"
#include "settings/registry.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Makes all keys with their defaults when the store is empty and fills the lines with examples.
/// Returns whether it did (a first start); false also when the store cannot be written.
[[nodiscard]] bool CreateDefaultKeys(const Registry& registry);

/// Makes every key that cannot be opened, with the values of the workspace. Without them a damaged
/// store would refuse all later writes. Fails silently.
void CreateMissingKeys(const Registry& registry, const Workspace& workspace);

/// The three loading steps of the start, in the program's order of calls. A value that cannot be
/// read gets its default; loading always goes on. `LoadSettings` reads the options and the view,
/// `LoadFunctionSettings` colours, types and approximation, `LoadFunctionTexts` the lines (and
/// clears every `selected`). Numbers are taken as stored (`type`, `color`, `approx`, `Wight`,
/// `TextSize` and `MaxAngle` may be any numbers; their users limit them). Exceptions: a flag is 1
/// for every number but 0, and `Setka` is 1 for every number but 0, 1 and 2. Bounds of an axis that
/// are equal or not finite become -10 and 10.
void LoadFunctionTexts(const Registry& registry, Workspace& workspace, const ShowMessage& show);
void LoadFunctionSettings(const Registry& registry, Workspace& workspace, const ShowMessage& show);
void LoadSettings(const Registry& registry, Workspace& workspace, const ShowMessage& show);

/// Stores bounds, factors and the parameter range; stops at the first failure.
[[nodiscard]] bool StoreView(const Registry& registry, const ViewWindow& view,
                             const Options& options);

/// Stores colour, type and approximation of slots 1 to 9; stops at the first failure.
[[nodiscard]] bool StoreFunctionSettings(const Registry& registry, const FunctionList& functions);

/// Stores one line's text under `equ` (cut to 50 UTF-16 units). Slot index 0..8.
[[nodiscard]] bool StoreFunctionText(const Registry& registry, int slot, std::u16string_view text);

/// Stores the texts of slots 1 to 9; stops at the first failure.
[[nodiscard]] bool StoreFunctionTexts(const Registry& registry, const EditorLines& lines);

/// Stores what the end of the program stores, as one batch: with `withView` the view, then function
/// settings and texts, stopping at the first failure. False when the view could not be stored, and
/// nothing else is stored then: the user is told first. Other failures are silent.
[[nodiscard]] bool StoreAtEnd(const Registry& registry, const Workspace& workspace, bool withView);

/// Stores one number of the main key. 1 on success, 0 on failure.
[[nodiscard]] std::int32_t StoreOption(const Registry& registry, std::string_view name,
                                       std::int32_t value);

}  // namespace kalvex
