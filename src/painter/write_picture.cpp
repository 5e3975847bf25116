// A format is one row: its ending and what writes it.
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
    {"bmp", FormatUse::Everywhere, WritePixels<WriteBitmap>},
    {"png", FormatUse::Everywhere, WritePixels<WritePng>},
    {"svg", FormatUse::Everywhere, WriteSvg},
    {"pdf", FormatUse::Everywhere, WritePdf},
    {"txt", FormatUse::ToolOnly, WriteDrawListText},
};

}  // namespace

std::span<const PictureFormat> PictureFormats() {
    return kFormats;
}

const PictureFormat* PictureFormatOf(const QString& path) {
    const std::string ending = QFileInfo(path).suffix().toLower().toStdString();
    for (const PictureFormat& format : kFormats)
        if (format.suffix == ending) return &format;
    return nullptr;
}

std::string PictureEndings() {
    std::string endings;
    for (const PictureFormat& format : kFormats) {
        if (!endings.empty()) endings += &format == std::end(kFormats) - 1 ? " or " : ", ";
        endings += '.';
        endings += format.suffix;
    }
    return endings;
}

}  // namespace kalvex
