// The two text types of the program meet here: UTF-16 of the engine, QString of the windows.
#pragma once

#include <QString>
#include <initializer_list>
#include <string>
#include <string_view>

#include "painter/qt_color.h"
#include "resources/strings.h"

namespace kalvex {

[[nodiscard]] inline QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::u16string FromQString(const QString& text) {
    return text.toStdU16String();
}

/// A text of the program's table.
[[nodiscard]] inline QString TextOf(StringId id) {
    return ToQString(Text(id));
}

/// A text of the table with its numbered places filled in, as FillIn does.
[[nodiscard]] inline QString TextOf(StringId id,
                                    std::initializer_list<std::u16string_view> places) {
    return ToQString(FillIn(Text(id), places));
}

}  // namespace kalvex
