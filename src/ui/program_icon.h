// The icon of the program.
#pragma once

#include <QIcon>

namespace kalvex {

/// The icon in all its sizes, 16 to 256 pixels. The small sizes show a simpler drawing.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace kalvex
