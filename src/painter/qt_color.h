// Converts the program's colours to those of Qt.
#pragma once

#include <QColor>

#include "graph/draw_list.h"

namespace kalvex {

[[nodiscard]] inline QColor ToQColor(const Rgb& color) {
    return QColor(color.red, color.green, color.blue);
}

}  // namespace kalvex
