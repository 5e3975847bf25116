// The formats of picture files as a table.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/complete_file.h"
#include "graph/draw_list.h"
#include "painter/painter.h"
#include "resources/strings.h"

namespace kalvex {

/// How a picture is painted, where its format leaves a choice.
struct PictureStyle {
    Playing playing = Playing::Smooth;
    double ratio = 1.0;  ///< device pixels per logical pixel
};

struct PictureFormat {
    std::string_view suffix;         ///< the ending of a name, lower case, without its dot
    std::optional<StringId> filter;  ///< words in the dialog; empty: only the tool offers it
    std::optional<Playing> playing;  ///< empty: there is a choice, also of the ratio

    /// Hands the file of the picture to `take`. False when it cannot be made or `take` fails; what
    /// was taken before is then to be thrown away.
    bool (*make)(const DrawList& list, const PictureStyle& style, const TakeBytes& take) = nullptr;
};

/// Where a format is offered. The tool offers all formats, the dialog those with words for it.
enum class FormatsOf { Windows, Tool };

/// All formats, in the order in which dialog and messages name them.
[[nodiscard]] std::span<const PictureFormat> PictureFormats();

/// How a picture of this format is painted.
[[nodiscard]] Playing PlayingOf(const PictureFormat& format, const PictureStyle& style);

[[nodiscard]] bool IsOffered(const PictureFormat& format, FormatsOf where);

/// The offered format with the ending of a file's name, in upper or lower case; null when there is
/// none. The name may have any bytes.
[[nodiscard]] const PictureFormat* PictureFormatOf(std::string_view path, FormatsOf where);

/// Why a picture is not written when HasFontsOf says no.
inline constexpr std::string_view kNoFont = "no font for its texts could be loaded";

/// Writes the picture into a file as a whole or not at all; see `WriteCompleteFile`. A picture
/// whose texts have no font is not written.
[[nodiscard]] WriteResult WritePicture(const PictureFormat& format, const std::string& path,
                                       const DrawList& list, const PictureStyle& style = {});

/// The endings of the offered formats, for a sentence: ".png, .svg or .pdf".
[[nodiscard]] std::string PictureEndings(FormatsOf where);

}  // namespace kalvex
