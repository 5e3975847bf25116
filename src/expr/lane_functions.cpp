// Functions without a kernel, one lane at a time: the language's own domain test first, then the
// numeric routine. An error object thrown by the routine becomes the code of the function: the
// point is undefined, the program goes on.
#include <algorithm>
#include <optional>

#include "expr/function_table.h"
#include "expr/kernels.h"
#include "expr/syntax_tree.h"
#include "specfun/specfun.h"

namespace kalvex {
namespace {

struct LaneResult {
    double value = 0.0;
    EvalCode code = EvalCode::None;
};

using Arguments = std::array<double, kMostOperands>;

/// What a failed routine sets: the function's code, or the general one where it has none.
EvalCode CodeOfRoutine(const Function& function) {
    return function.code != EvalCode::None ? function.code : EvalCode::NoValue;
}

LaneResult ComputeLane(const Function& function, const Arguments& in) {
    const LaneForm& form = function.lanes;
    if (form.failsEarlier != nullptr && form.failsEarlier(in[0], in[1], in[2], in[3])) {
        return {0.0, form.earlierCode};
    }
    if (form.fails(in[0], in[1], in[2], in[3])) return {0.0, function.code};
    try {
        return {form.value(in[0], in[1], in[2], in[3])};
    } catch (const ap::ap_error&) {
        return {0.0, CodeOfRoutine(function)};
    }
}

LaneResult ComputeLane(const Function& function, const KernelCall& call, std::size_t lane) {
    Arguments arguments = {};
    for (int i = 0; i < function.arity; ++i) {
        const Source& source = call.in[i];
        arguments[static_cast<std::size_t>(i)] =
            source.values != nullptr ? source.values[lane] : source.scalar;
    }
    return ComputeLane(function, arguments);
}

bool HasOneValue(const Function& function, const KernelCall& call) {
    return std::all_of(call.in, call.in + function.arity,
                       [](const Source& source) { return source.values == nullptr; });
}

}  // namespace

bool RunLaneByLane(FunctionNumber number, const KernelCall& call) {
    const Function& function = FunctionAt(number);
    if (function.lanes.value == nullptr) {
        return ActiveKernels().kernels[static_cast<std::size_t>(FunctionOp(number))](call);
    }
    const bool hasOneValue = HasOneValue(function, call);
    const std::size_t wanted = call.count - call.padding;
    std::optional<LaneResult> result;
    bool anyFailed = false;
    for (std::size_t lane = 0; lane < wanted; ++lane) {
        if (call.errors[lane] != 0 || IsStopped(call.interruption)) {
            call.out[lane] = 0.0;
            continue;
        }
        // The arguments are read before anything is written: `out` may be their array.
        if (!hasOneValue || !result) result = ComputeLane(function, call, lane);
        call.out[lane] = result->value;
        call.errors[lane] = static_cast<std::int32_t>(result->code);
        anyFailed |= result->code != EvalCode::None;
    }
    std::fill_n(call.out + wanted, call.padding, call.out[wanted - 1]);
    std::fill_n(call.errors + wanted, call.padding, call.errors[wanted - 1]);
    return anyFailed;
}

}  // namespace kalvex
