// The texts of numbers at nice steps. They are made from whole numbers and a power of ten, so that
// they are exact.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "graph/nice_steps.h"

namespace kalvex {

/// Longer numbers get an exponent or an offset.
inline constexpr std::size_t kLongestNumber = 8;

struct NiceTexts {
    std::vector<std::u16string> texts;  ///< one for each mark
    /// What is to be added to each number: "+1000" or "+(-1000)". Empty when the texts are the
    /// numbers themselves.
    std::u16string offset;
};

/// The numbers of some marks: all of them in full, or all with exponents where one would be longer
/// than kLongestNumber (its sign not counted). Where that is too long as well, the numbers are
/// differences from an offset, unless there shall be none.
[[nodiscard]] NiceTexts TextsOf(std::span<const NiceMark> marks, const NiceStep& step,
                                bool mayHaveOffset);

}  // namespace kalvex
