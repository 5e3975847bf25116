// The one conversion from a double to an integer that the program uses.
#pragma once

#include <cstdint>
#include <limits>

namespace kalvex {

namespace detail {

template <typename Integer>
[[nodiscard]] constexpr Integer Truncate(double value, double firstTooLarge) {
    if (value != value) return 0;
    if (value >= firstTooLarge) return std::numeric_limits<Integer>::max();
    if (value < -firstTooLarge) return std::numeric_limits<Integer>::min();
    return static_cast<Integer>(value);
}

}  // namespace detail

/// Truncates toward zero. The result is defined for every double: a value out of range gives the
/// nearest end of the range, not-a-number gives 0.
[[nodiscard]] constexpr std::int32_t TruncateToInt32(double value) {
    return detail::Truncate<std::int32_t>(value, 2147483648.0);
}

/// The same for integers of 64 bits.
[[nodiscard]] constexpr std::int64_t TruncateToInt64(double value) {
    return detail::Truncate<std::int64_t>(value, 9223372036854775808.0);
}

}  // namespace kalvex
