// The rows of functions.inc as records, for what is looked up while a program is made or runs.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "expr/eval_code.h"
#include "expr/function_bounds.h"
#include "expr/names.h"
#include "resources/strings.h"

namespace kalvex {

/// How a function without a kernel is computed, from its arguments in written order; those beyond
/// its arity are 0 and unused.
struct LaneForm {
    using Test = bool (*)(double a, double b, double c, double d);
    using Routine = double (*)(double a, double b, double c, double d);

    Routine value = nullptr;      ///< null: the function has a kernel
    Test fails = nullptr;         ///< the function's domain test; its code is the function's
    Test failsEarlier = nullptr;  ///< null, or a domain test that comes before
    EvalCode earlierCode = EvalCode::None;
};

struct Function {
    std::u16string_view name;
    int arity = 0;
    EvalCode code = EvalCode::None;   ///< for a failed domain test and for a routine that gave up
    std::optional<StringId> message;  ///< of the code, where it is the function's own
    LaneForm lanes;
    FunctionBounds bounds = kNoBounds;
};

/// Indexed by FunctionNumber.
extern const std::array<Function, kFunctionCount> kFunctions;

[[nodiscard]] inline const Function& FunctionAt(FunctionNumber number) {
    return kFunctions[static_cast<std::size_t>(number)];
}

/// Whether a call of the function may set EvalError.
[[nodiscard]] inline bool CanFail(const Function& function) {
    return function.code != EvalCode::None || function.lanes.value != nullptr;
}

}  // namespace kalvex
