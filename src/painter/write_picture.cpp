// A format is one row: its ending, its words in the dialog, and the function that makes its files.
#include "painter/write_picture.h"

#include "painter/draw_list_text.h"
#include "painter/painter.h"
#include "painter/picture_file.h"
#include "painter/vector_file.h"

namespace kalvex {
namespace {

bool MakeStyledPng(const DrawList& list, const PictureStyle& style, const TakeBytes& take) {
    return MakePng(PaintPicture(list, style.ratio, style.playing), take);
}

bool MakeClassicBitmap(const DrawList& list, const PictureStyle&, const TakeBytes& take) {
    return MakeBitmap(PaintPicture(list), take);
}

/// A format that has one style only.
template <bool (*make)(const DrawList& list, const TakeBytes& take)>
bool Unstyled(const DrawList& list, const PictureStyle&, const TakeBytes& take) {
    return make(list, take);
}

constexpr PictureFormat kFormats[] = {
    {"png", StringId::FilterPng, std::nullopt, MakeStyledPng},
    {"svg", StringId::FilterSvg, Playing::Smooth, Unstyled<MakeSvg>},
    {"pdf", StringId::FilterPdf, Playing::Smooth, Unstyled<MakePdf>},
    {"bmp", StringId::FilterBitmap, Playing::Classic, MakeClassicBitmap},
    {"txt", std::nullopt, Playing::Classic, Unstyled<MakeDrawListText>},
};

/// A text with its ASCII letters in lower case.
std::string FoldedAscii(std::string_view text) {
    std::string folded(text);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

}  // namespace

std::span<const PictureFormat> PictureFormats() {
    return kFormats;
}

Playing PlayingOf(const PictureFormat& format, const PictureStyle& style) {
    return format.playing.value_or(style.playing);
}

bool IsOffered(const PictureFormat& format, FormatsOf where) {
    return where == FormatsOf::Tool || format.filter.has_value();
}

const PictureFormat* PictureFormatOf(std::string_view path, FormatsOf where) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    const std::string ending = FoldedAscii(dot == name.npos ? "" : name.substr(dot + 1));
    for (const PictureFormat& format : kFormats)
        if (format.suffix == ending && IsOffered(format, where)) return &format;
    return nullptr;
}

WriteResult WritePicture(const PictureFormat& format, const std::string& path, const DrawList& list,
                         const PictureStyle& style) {
    if (!HasFontsOf(list)) return {std::string(kNoFont)};
    return WriteCompleteFile(path,
                             [&](const TakeBytes& take) { return format.make(list, style, take); });
}

std::string PictureEndings(FormatsOf where) {
    std::string before;  // all endings but the last
    std::string last;
    for (const PictureFormat& format : kFormats) {
        if (!IsOffered(format, where)) continue;
        if (!last.empty()) before += (before.empty() ? "" : ", ") + last;
        last = '.' + std::string(format.suffix);
    }
    return before.empty() ? last : before + " or " + last;
}

}  // namespace kalvex
