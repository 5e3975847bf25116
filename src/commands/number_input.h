// Numbers as they are typed into the small dialogs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kalvex {

/// Why a text was refused.
struct InputProblem {
    std::size_t field = 0;  ///< index of the text
    std::u16string message;
};

/// The shortest text that reads back as the same number.
[[nodiscard]] std::u16string NumberForInput(double value);

/// The number when the whole text, apart from blanks around it, is one. A number that is too large
/// is infinite.
[[nodiscard]] std::optional<double> WholeNumber(std::u16string_view text);

/// Reads one finite number from each text. When a text is not a finite number, the result names it
/// and `numbers` is unchanged. All three spans have the same size.
[[nodiscard]] std::optional<InputProblem> ReadFiniteNumbers(
    std::span<const std::u16string> texts, std::span<const std::u16string_view> names,
    std::span<double> numbers);

/// The whole number at the start of a text: blanks, a sign, digits; what follows is not looked at.
/// 0 when there are no digits; numbers beyond 32 bits become the nearest that fits.
[[nodiscard]] std::int32_t LeadingInteger(std::u16string_view text);

}  // namespace kalvex
