// Which keys run which command: one table for the windows, their menus and the help.
#pragma once

#include <span>
#include <string_view>

#include "resources/command_ids.h"

namespace kalvex {

struct ShortCut {
    CommandId command = CommandId::None;
    /// As key sequences are written in English: "Ctrl+Q"; "Ctrl+M, 0" is two strokes.
    std::u16string_view keys;
};

/// The short cuts of the editor. Keys without Ctrl or Alt type text there.
[[nodiscard]] std::span<const ShortCut> EditorShortCuts();

/// The short cuts of the graph window.
[[nodiscard]] std::span<const ShortCut> GraphShortCuts();

/// The short cuts of the report.
[[nodiscard]] std::span<const ShortCut> ReportShortCuts();

/// The first keys of a command in a table; empty for a command without any.
[[nodiscard]] std::u16string_view KeysOf(std::span<const ShortCut> table, CommandId command);

}  // namespace kalvex
