// The function names over the curves.
#pragma once

#include "graph/draw_list.h"
#include "graph/viewport.h"
#include "workspace/function_entry.h"
#include "workspace/options.h"

namespace kalvex {

/// One line per drawn function from (5, 5) down, in its colour, " (r)" behind a `Polar` text; a
/// `File` shows the part behind the last slash or backslash. A text is cut to as many characters
/// as the picture has columns, since more cannot be seen. The height is TextHeightOf(options).
/// Numbers that are already in the list and lie below a name are marked as covered.
void DrawLegend(const Viewport& viewport, const FunctionList& functions, const Options& options,
                const MeasureText& measure, DrawList& list);

/// The text that stands for a function: its line, or for a `File` the part behind the last slash or
/// backslash. It is cut to `limit` UTF-16 units, but never within a surrogate pair.
[[nodiscard]] std::u16string DisplayText(const FunctionEntry& entry, std::size_t limit);

/// Whether a slot is drawn: selected and of a known type.
[[nodiscard]] bool IsDrawn(const FunctionEntry& entry);

}  // namespace kalvex
