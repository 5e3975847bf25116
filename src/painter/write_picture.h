// The formats of picture files as a table.
#pragma once

#include <QString>
#include <span>
#include <string>
#include <string_view>

#include "graph/draw_list.h"

namespace kalvex {

/// Who offers a format: the tool knows all of them, the windows those that show a picture.
enum class FormatUse { Everywhere, ToolOnly };

struct PictureFormat {
    std::string_view suffix;  ///< the ending of a name, lower case, without its dot
    FormatUse use = FormatUse::Everywhere;

    /// Writes the picture at one pixel per logical pixel; false when the file cannot be written.
    bool (*write)(const QString& path, const DrawList& list) = nullptr;
};

/// All formats, in the order in which texts name them.
std::span<const PictureFormat> PictureFormats();

/// The format that a name's ending says, in any case; null for any other name.
const PictureFormat* PictureFormatOf(const QString& path);

/// The endings of all formats that the tool takes, for a sentence: ".png, .svg or .txt".
std::string PictureEndings();

}  // namespace kalvex
