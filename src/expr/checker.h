// The syntax check of one normalised expression: twelve rules in a fixed order, the first that
// fails decides.
#pragma once

#include <cstdint>
#include <string_view>

namespace kalvex {

enum class CheckMode : std::int32_t { OneVariable = 1, TwoVariables = 2 };

struct CheckResult {
    std::u16string_view message;  ///< from the string table
    std::int32_t code = 0;        ///< 0: accepted; negative: the failed rule's code
};

/// Checks a text of any length. The cost grows linearly with the length, apart from the reduction
/// of at most 255 tokens.
[[nodiscard]] CheckResult CheckExpression(std::u16string_view text, CheckMode mode);

}  // namespace kalvex
