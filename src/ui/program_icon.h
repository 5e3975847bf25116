// The icon of the program.
#pragma once

#include <QIcon>

namespace kalvex {

/// All its sizes, 16 to 256 pixels; the small ones are a drawing of their own.
QIcon ProgramIcon();

}  // namespace kalvex
