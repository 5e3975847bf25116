// The two text types of the program meet here: UTF-16 of the engine, QString of the windows.
#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

#include "workspace/function_entry.h"

namespace kalvex {

inline QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

inline std::u16string FromQString(const QString& text) {
    return text.toStdU16String();
}

inline QColor ToQColor(Rgb color) {
    return QColor(color.red, color.green, color.blue);
}

}  // namespace kalvex
