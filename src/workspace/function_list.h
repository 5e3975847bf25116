// What can be done with the nine function lines. Slots are 0-based indexes here.
#pragma once

#include <string_view>

#include "base/message_box.h"
#include "workspace/workspace.h"

namespace kalvex {

/// The label of an equation type (" r(x)=", " Y(x)=", ...); " Y(x)=" for any other number.
[[nodiscard]] std::u16string_view LabelOf(EquationType type);

/// Toggles `selected`.
void ToggleSelected(FunctionEntry& entry);

void UnselectAll(FunctionList& functions);

[[nodiscard]] bool AnySelected(const FunctionList& functions);

/// Prepares one line for drawing: copies the text and, when the line is selected, normalises,
/// checks and compiles its expressions. Shows a message and returns false when that fails.
[[nodiscard]] bool PrepareFunction(FunctionEntry& entry, int slot, std::u16string_view line,
                                   const ShowMessage& show);

/// Releases texts, compiled forms, points and samples of every slot.
void ReleaseFunctions(FunctionList& functions);

}  // namespace kalvex
