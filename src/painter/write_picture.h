// The formats of picture files as a table.
#pragma once

#include <QString>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "graph/draw_list.h"
#include "resources/strings.h"

namespace kalvex {

struct PictureFormat {
    std::string_view suffix;         ///< the ending of a name, lower case, without its dot
    std::optional<StringId> filter;  ///< words in the dialog; empty: only the tool offers it

    /// Writes the picture at one pixel per logical pixel; false when the file cannot be written.
    bool (*write)(const QString& path, const DrawList& list) = nullptr;
};

/// Where a format is offered. The tool offers all formats, the dialog those with words for it.
enum class FormatsOf { Windows, Tool };

/// All formats, in the order in which dialog and messages name them.
[[nodiscard]] std::span<const PictureFormat> PictureFormats();

[[nodiscard]] bool IsOffered(const PictureFormat& format, FormatsOf where);

/// The offered format with the ending of a file's name, in upper or lower case; null when there is
/// none.
[[nodiscard]] const PictureFormat* PictureFormatOf(const QString& path, FormatsOf where);

/// The endings of the offered formats, for a sentence: ".png, .svg or .pdf".
[[nodiscard]] std::string PictureEndings(FormatsOf where);

}  // namespace kalvex
