// The language's vocabulary: its functions by number, name and arity. All that is known of a
// function stands in its row of functions.inc.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kalvex {

/// A function's number in the name table.
enum class FunctionNumber : std::int32_t {
#define FUNCTION(number, name, arity, domain, evaluation, bounds) number,
#include "expr/functions.inc"
};

struct FunctionName {
    std::u16string_view name;
    int arity;
};

/// Indexed by FunctionNumber. Names are case-sensitive.
inline constexpr auto kFunctionNames = std::to_array<FunctionName>({
#define FUNCTION(number, name, arity, domain, evaluation, bounds) {u"" name, arity},
#include "expr/functions.inc"
});

inline constexpr std::size_t kFunctionCount = kFunctionNames.size();

/// Operands that a function or another operation has at most.
inline constexpr std::size_t kMostOperands = 4;

}  // namespace kalvex
