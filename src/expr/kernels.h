// The array operations behind the evaluator. A kernel applies one operation to all elements, here
// called lanes, of its operand arrays. There is one table of kernels for each instruction set; the
// program chooses one at the start by what the processor offers. Within a table every lane is
// computed independently of its neighbours, so one point and many points agree bit for bit; the
// tables with fused multiply-add (AVX2, AVX-512, NEON) also agree with each other.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/interruption.h"
#include "expr/eval_code.h"
#include "expr/names.h"

namespace kalvex {

/// All arrays that kernels touch are padded to a multiple of this many elements.
inline constexpr std::size_t kPaddedLanes = 8;

/// Operations of a program. Functions of the language follow from `Function` on, in the order of
/// their numbers.
enum class OpCode : std::uint8_t {
    Add,
    Subtract,
    Multiply,
    Divide,
    Power,
    IntegerPower,            ///< a ^ immediate, |immediate| <= kLargestIntegerPower
    SquareRoot,              ///< a ^ 0.5
    MultiplyAdd,             ///< a * b + c in two roundings
    MultiplySubtract,        ///< a * b - c
    SubtractMultiplied,      ///< c - a * b
    MultiplyAddPlus,         ///< (a * b + c) + d, each rounded; d is one number
    MultiplySubtractPlus,    ///< (a * b - c) + d
    SubtractMultipliedPlus,  ///< (c - a * b) + d
    PowerTerm,               ///< b * a ^ immediate + c: a and c arrays, b one number
    Function,
};

inline constexpr std::size_t kOpCodeCount =
    static_cast<std::size_t>(OpCode::Function) + kFunctionCount;

[[nodiscard]] constexpr OpCode FunctionOp(FunctionNumber number) {
    return static_cast<OpCode>(static_cast<int>(OpCode::Function) + static_cast<int>(number));
}

[[nodiscard]] constexpr bool IsFunction(OpCode op) {
    return op >= OpCode::Function;
}

/// The function that an operation for which IsFunction holds calls.
[[nodiscard]] constexpr FunctionNumber FunctionOf(OpCode op) {
    return static_cast<FunctionNumber>(static_cast<int>(op) - static_cast<int>(OpCode::Function));
}

/// Exponents up to this magnitude are computed as products.
inline constexpr int kLargestIntegerPower = 1024;

/// Exponents whose products are compiled in, one kernel each. PowerTerm has no others.
inline constexpr int kFirstFixedPower = 3;
inline constexpr int kLastFixedPower = 20;

/// An operand: an array, or one value for all lanes when `values` is null.
struct Source {
    const double* values = nullptr;
    double scalar = 0.0;
};

struct KernelCall {
    double* out = nullptr;           ///< may be one of the operands' arrays
    const Source* in = nullptr;      ///< as many as the operation has operands
    std::size_t count = 0;           ///< a multiple of kPaddedLanes
    std::int32_t* errors = nullptr;  ///< by lane; a code that is there already is kept
    int immediate = 0;
    std::size_t padding = 0;  ///< lanes at the end, fewer than all, whose results are not used
    Interruption* interruption = nullptr;  ///< looked at before each lane of a slow function
};

/// Computes all lanes; true when a lane failed its domain test (its code is then in `errors`, its
/// value is meaningless).
using Kernel = bool (*)(const KernelCall&);

struct KernelTable {
    const char* name = "";
    /// Whether a[i] * b[i] <= 0 for some i. A product that is not-a-number does not count.
    bool (*anyProductNotPositive)(const double* a, const double* b, std::size_t count) = nullptr;
    Kernel kernels[kOpCodeCount] = {};  ///< by OpCode; none is null
};

/// The tables that this processor can run, best first; never empty.
struct KernelTables {
    const KernelTable* tables[3] = {};
    std::size_t count = 0;
};
[[nodiscard]] KernelTables AvailableKernelTables();

/// The best table of this processor.
[[nodiscard]] const KernelTable& ActiveKernels();

/// Computes a function without a kernel of its own lane by lane. Lanes that failed before are
/// skipped; padding lanes become copies of the last lane before them, code and all, and a function
/// of scalars alone is computed once. A function that has a kernel is computed by it. When the call
/// is stopped, the remaining lanes are 0.
[[nodiscard]] bool RunLaneByLane(FunctionNumber function, const KernelCall& call);

}  // namespace kalvex
