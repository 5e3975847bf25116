// The four writers under one name.
#include "painter/write_picture.h"

#include <QFileInfo>

#include "painter/painter.h"
#include "painter/picture_file.h"
#include "painter/vector_file.h"

namespace kalvex {

std::optional<PictureFormat> PictureFormatOf(const QString& path) {
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == "bmp") return PictureFormat::Bmp;
    if (ending == "png") return PictureFormat::Png;
    if (ending == "svg") return PictureFormat::Svg;
    if (ending == "pdf") return PictureFormat::Pdf;
    return std::nullopt;
}

bool WritePicture(const QString& path, const DrawList& list, PictureFormat format) {
    switch (format) {
        case PictureFormat::Bmp:
            return WriteBitmap(path, PaintPicture(list));
        case PictureFormat::Png:
            return WritePng(path, PaintPicture(list));
        case PictureFormat::Svg:
            return WriteSvg(path, list);
        case PictureFormat::Pdf:
            return WritePdf(path, list);
    }
    return false;
}

}  // namespace kalvex
