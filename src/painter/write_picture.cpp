// A format is one row: its ending, its words in the dialog, and the function that writes it.
#include "painter/write_picture.h"

#include <QFileInfo>

#include "painter/draw_list_text.h"
#include "painter/painter.h"
#include "painter/picture_file.h"
#include "painter/vector_file.h"

namespace kalvex {
namespace {

template <bool (*write)(const QString& path, const QImage& picture)>
bool WritePixels(const QString& path, const DrawList& list) {
    return write(path, PaintPicture(list));
}

constexpr PictureFormat kFormats[] = {
    {"png", StringId::FilterPng, WritePixels<WritePng>},
    {"svg", StringId::FilterSvg, WriteSvg},
    {"pdf", StringId::FilterPdf, WritePdf},
    {"bmp", StringId::FilterBitmap, WritePixels<WriteBitmap>},
    {"txt", std::nullopt, WriteDrawListText},
};

}  // namespace

std::span<const PictureFormat> PictureFormats() {
    return kFormats;
}

bool IsOffered(const PictureFormat& format, FormatsOf where) {
    return where == FormatsOf::Tool || format.filter.has_value();
}

const PictureFormat* PictureFormatOf(const QString& path, FormatsOf where) {
    const std::string ending = QFileInfo(path).suffix().toLower().toStdString();
    for (const PictureFormat& format : kFormats)
        if (format.suffix == ending && IsOffered(format, where)) return &format;
    return nullptr;
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
