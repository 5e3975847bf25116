// Which function names are offered while an expression is typed.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kalvex {

/// Length of the word that ends at the caret: what follows the last of the 20 delimiters (brackets,
/// punctuation, operators, digits) before it. A caret behind the end counts as the end.
[[nodiscard]] std::size_t WordLength(std::u16string_view text, std::size_t caret);

/// The names of the function table that begin with a word, in the table's order; an entire name
/// begins with itself. Upper and lower case differ, as they do in an expression. None for an empty
/// word.
[[nodiscard]] std::vector<std::u16string_view> NamesBeginningWith(std::u16string_view word);

/// Whether typing the character opens the list of names: the letters A to Z and a to z.
[[nodiscard]] bool AsksForNames(char16_t typed);

}  // namespace kalvex
