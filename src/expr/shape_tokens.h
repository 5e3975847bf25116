// The structural test of the syntax check: a text is cut into tokens that keep only the shape of
// an expression, and the tokens are reduced as operations, brackets and calls are recognised.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kalvex {

enum class ShapeToken : std::int16_t {
    Operand = 0,  ///< a number, x or y
    Head1 = 1,    ///< a one-argument function with its "("
    Head2 = 2,    ///< a two-argument function with its "("
    Head3 = 3,    ///< "Cheb("
    Head4 = 4,    ///< "Hyper("
    Operator = 100,
    Comma = 101,
    Open = 102,  ///< a "(" that belongs to no function
    Close = 103,
    Deleted = -100,  ///< used up by a reduction; no stream that is handed out holds one
};

/// Longest stream that the structural test takes.
inline constexpr std::size_t kShapeCapacity = 255;

/// The tokens of a text; nothing when it holds a character or word that makes no token, a function
/// name without its "(", or more than kShapeCapacity tokens. Linear in the length.
[[nodiscard]] std::optional<std::vector<ShapeToken>> TokenizeShape(std::u16string_view text);

/// How many tokens a text has, counted up to its end, to what makes no token, or to one more than
/// kShapeCapacity.
[[nodiscard]] std::size_t ShapeLength(std::u16string_view text);

/// Replaces patterns by operands, each time the leftmost that matches, until none does.
void ReduceShape(std::vector<ShapeToken>& tokens);

/// True when the reduced stream begins with an operand or is a single token. Lenient: what follows
/// a first operand is not looked at, so "x,y" passes.
[[nodiscard]] bool CheckCommaPlacement(std::u16string_view text);

}  // namespace kalvex
