// What loading and storing of settings share: the key of a slot and the limits of a stored text.
#pragma once

#include <cstddef>
#include <string>

namespace kalvex {

/// Every text is stored as 100 bytes, whatever its length.
inline constexpr std::size_t kStoredUnits = 50;

/// The reader's buffer of a line: 510 bytes.
inline constexpr std::size_t kLineUnits = 255;

/// The function key of a slot index 0..8: "1" to "9".
inline std::string SlotKey(int slot) {
    return std::string(1, static_cast<char>('1' + slot));
}

}  // namespace kalvex
