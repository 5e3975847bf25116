// Names and descriptions of the lines for screen readers.
#pragma once

#include <QString>

#include "workspace/function_entry.h"

namespace kalvex {

/// Number and type, such as "Function 1 Y(x)=".
[[nodiscard]] QString NameOfLine(int slot, const FunctionEntry& entry);

/// Colour word, whether it is selected, and the hint if there is one. A colour number outside the
/// table has no word.
[[nodiscard]] QString DescriptionOfLine(const FunctionEntry& entry, const QString& hint);

/// The hint for a line that is longer than what the settings keep; empty for any other line.
[[nodiscard]] QString HintOfLine(std::u16string_view line);

}  // namespace kalvex
