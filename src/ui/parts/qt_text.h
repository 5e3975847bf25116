// The two text types of the program meet here: UTF-16 of the engine, QString of the windows.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "painter/qt_color.h"

namespace kalvex {

inline QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

inline std::u16string FromQString(const QString& text) {
    return text.toStdU16String();
}

}  // namespace kalvex
