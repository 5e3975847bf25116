// Picture files as the windows write them, for tests.
#pragma once

#include <QImage>
#include <QString>

#include "base/complete_file.h"
#include "painter/draw_list_text.h"
#include "painter/picture_file.h"
#include "painter/png_file.h"
#include "painter/vector_file.h"

namespace kalvex {

template <typename Picture>
bool WriteWith(bool (*make)(const Picture&, const TakeBytes&), const QString& path,
               const Picture& picture) {
    const auto fill = [&](const TakeBytes& take) { return make(picture, take); };
    return static_cast<bool>(WriteCompleteFile(path.toStdString(), fill));
}

inline bool WriteBitmap(const QString& path, const QImage& picture) {
    return WriteWith(MakeBitmap, path, picture);
}
inline bool WritePng(const QString& path, const QImage& picture) {
    return WriteWith(MakePng, path, picture);
}
inline bool WriteSvg(const QString& path, const DrawList& list) {
    return WriteWith(MakeSvg, path, list);
}
inline bool WritePdf(const QString& path, const DrawList& list) {
    return WriteWith(MakePdf, path, list);
}
inline bool WriteDrawListText(const QString& path, const DrawList& list) {
    return WriteWith(MakeDrawListText, path, list);
}

}  // namespace kalvex
