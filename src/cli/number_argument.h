// Numbers in arguments. The whole text must be the number, and no locale changes its form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kalvex {

/// A decimal number, or one of the words inf, -inf, nan.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

/// Exactly `count` numbers separated by commas.
[[nodiscard]] std::optional<std::vector<double>> ParseNumbers(std::string_view text,
                                                              std::size_t count);

/// A whole number, decimal digits with an optional sign, from `first` to `last`; its magnitude is
/// at most 2^53.
[[nodiscard]] std::optional<std::int64_t> ParseWhole(std::string_view text, std::int64_t first,
                                                     std::int64_t last);

/// The parts of a text between the separators: one more than there are separators, some may be
/// empty.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, char separator);

}  // namespace kalvex
