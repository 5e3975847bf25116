// The program's colours as Qt wants them.
#pragma once

#include <QColor>

#include "workspace/function_entry.h"

namespace kalvex {

inline QColor ToQColor(const Rgb& color) {
    return QColor(color.red, color.green, color.blue);
}

}  // namespace kalvex
