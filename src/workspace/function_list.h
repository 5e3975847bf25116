// What can be done with the nine function lines. Slots are 0-based indexes here.
#pragma once

#include <string_view>

#include "base/message_box.h"
#include "workspace/registry.h"
#include "workspace/workspace.h"

namespace kalvex {

/// The label of an equation type (" r(x)=", " Y(x)=", ...); " Y(x)=" for any other number.
std::u16string_view LabelOf(std::int32_t type);

/// Toggles `selected`.
void ToggleSelected(FunctionEntry& entry);

void UnselectAll(FunctionList& functions);

bool AnySelected(const FunctionList& functions);

/// Prepares all nine lines for drawing, in slot order: texts, normalising, checking, compiling,
/// storing the line as typed under `equ`. Messages go to `show`; the first failure ends it with
/// false, silently when the line could not be stored. Slots after a failed one stay as they were.
bool PrepareFunctions(FunctionList& functions, const EditorLines& lines, const Registry& registry,
                      const ShowMessage& show);

/// The same for one slot without storing it (the command-line tool has no registry).
bool PrepareFunction(FunctionEntry& entry, int slot, std::u16string_view line,
                     const ShowMessage& show);

/// Releases texts, compiled forms, points and samples of every slot.
void ReleaseFunctions(FunctionList& functions);

}  // namespace kalvex
