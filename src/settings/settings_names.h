// What loading and storing of settings share: the names of the view's values, the key of a slot and
// the limits of a stored text.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "workspace/view_window.h"

namespace kalvex {

/// Every text is stored as 100 bytes, which are 50 UTF-16 units, whatever its length.
inline constexpr std::size_t kStoredUnits = 50;

/// Whether a text and its terminating zero fit into what is stored.
[[nodiscard]] constexpr bool IsStoredWhole(std::u16string_view text) {
    return text.size() < kStoredUnits;
}

/// The longest text of a line that is read: what fits into a buffer of 510 bytes.
inline constexpr std::size_t kLineUnits = 255;

struct ViewValue {
    std::string_view loadedAs;
    std::string_view storedAs;
    double ViewWindow::*field;
};

/// The values of the view in the order in which they are loaded and stored.
inline constexpr std::array<ViewValue, 6> kViewValues = {{
    {"xmin", "Xmin", &ViewWindow::Xmin},  // KEEP: the two spellings differ
    {"Xmax", "Xmax", &ViewWindow::Xmax},
    {"Ymin", "Ymin", &ViewWindow::Ymin},
    {"Ymax", "Ymax", &ViewWindow::Ymax},
    {"Xfactor", "Xfactor", &ViewWindow::Xfactor},
    {"Yfactor", "Yfactor", &ViewWindow::Yfactor},
}};

/// The function key of a slot index 0..8: "1" to "9".
[[nodiscard]] inline std::string SlotKey(int slot) {
    return std::string(1, static_cast<char>('1' + slot));
}

}  // namespace kalvex
