// The rows of functions.inc, and rules about them that are checked when this file is compiled.
#include "expr/function_table.h"

#include <algorithm>
#include <cmath>

#include "specfun/specfun.h"

namespace kalvex {
namespace {

bool IsIntegral(double value) {
    return value - std::floor(value) == 0.0;
}

bool IsOutsideOne(double value) {
    return value < -1.0 || value > 1.0;
}

struct Domain {
    EvalCode code = EvalCode::None;
    std::optional<StringId> message;
};

constexpr LaneForm Lanes(LaneForm::Routine value, LaneForm::Test fails) {
    return {value, fails, nullptr, EvalCode::None};
}

constexpr LaneForm Lanes(LaneForm::Routine value, LaneForm::Test fails, EvalCode earlierCode,
                         LaneForm::Test failsEarlier) {
    return {value, fails, failsEarlier, earlierCode};
}

// What the columns of functions.inc mean here.
// clang-format off
#define NO_CODE Domain()
#define OWN_CODE(code, message) Domain{EvalCode::code, StringId::message}
#define CODE_OF(code) Domain{EvalCode::code, std::nullopt}
#define KERNEL(kernel) LaneForm()
#define OF_ARGUMENTS(expression)                                                           \
    []([[maybe_unused]] double a, [[maybe_unused]] double b, [[maybe_unused]] double c,     \
       [[maybe_unused]] double d) { return expression; }
#define LANES(fails, value) Lanes(OF_ARGUMENTS(specfun::value), OF_ARGUMENTS(fails))
#define LANES_AFTER(code, failsEarlier, fails, value)                                      \
    Lanes(OF_ARGUMENTS(specfun::value), OF_ARGUMENTS(fails), EvalCode::code,               \
          OF_ARGUMENTS(failsEarlier))
// clang-format on

constexpr Function MakeFunction(const FunctionName& name, const Domain& domain,
                                const LaneForm& lanes, FunctionBounds bounds) {
    return {name.name, name.arity, domain.code, domain.message, lanes, bounds};
}

constexpr std::array<Function, kFunctionCount> kRows = {{
#define FUNCTION(number, name, arity, domain, evaluation, bounds) \
    MakeFunction({u"" name, arity}, domain, evaluation, bounds),
#include "expr/functions.inc"
}};

#undef NO_CODE
#undef OWN_CODE
#undef CODE_OF
#undef KERNEL
#undef LANES
#undef LANES_AFTER
#undef OF_ARGUMENTS

constexpr bool FitsOperands(const Function& function) {
    return function.arity >= 1 && function.arity <= static_cast<int>(kMostOperands);
}
static_assert(std::ranges::all_of(kRows, FitsOperands), "a call has one to four arguments");

// With sanitizers GCC 12 does not take the comparison of a function with null for a constant, so
// that the checks ask here, not the rows.
constexpr bool kHasKernel[] = {
#define KERNEL(kernel) true
#define LANES(fails, value) false
#define LANES_AFTER(code, failsEarlier, fails, value) false
#define FUNCTION(number, name, arity, domain, evaluation, bounds) evaluation,
#include "expr/functions.inc"
#undef KERNEL
#undef LANES
#undef LANES_AFTER
};

/// Whether no function with a kernel has a code that belongs to another function.
constexpr bool HaveFittingCodes() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const bool isShared = !kRows[i].message && kRows[i].code != EvalCode::None;
        if (kHasKernel[i] && isShared) return false;
    }
    return true;
}
static_assert(HaveFittingCodes(), "a kernel sets its own code or none");

/// Whether exactly one row has the code as its own and gives its message.
constexpr bool IsOwnedByOneRow(EvalCode code) {
    return std::ranges::count_if(kRows, [code](const Function& function) {
               return function.code == code && function.message;
           }) == 1;
}
constexpr bool IsEveryCodeOwnedByOneRow() {
    for (auto code = static_cast<std::int32_t>(kFirstFunctionCode);
         code < static_cast<std::int32_t>(EvalCode::EndOfFunctions); ++code) {
        if (!IsOwnedByOneRow(static_cast<EvalCode>(code))) return false;
    }
    return true;
}
static_assert(IsEveryCodeOwnedByOneRow(), "each code of functions is the own code of one row");

}  // namespace

constinit const std::array<Function, kFunctionCount> kFunctions = kRows;

}  // namespace kalvex
