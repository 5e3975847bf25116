// A program: the tree flattened into a list of array operations in evaluation order.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "expr/syntax_tree.h"

namespace kalvex {

/// Where an operand's values come from. Arrays and scalars are the program's inputs: array 0 is x
/// and scalar 0 is y; further ones hold sub-expressions computed beforehand.
enum class OperandKind : std::uint8_t { Register, Array, Scalar, Constant };

struct Operand {
    OperandKind kind = OperandKind::Constant;
    std::uint16_t index = 0;
    double value = 0.0;  ///< of a constant
};

struct Instruction {
    OpCode op = OpCode::Add;
    std::uint8_t operandCount = 0;
    std::uint16_t target = 0;  ///< register that receives the result
    int immediate = 0;
    std::array<Operand, kMostOperands> operands = {};
};

struct InstructionList {
    std::vector<Instruction> code;
    Operand result;
    int registerCount = 0;
};

/// Programs that need more registers are refused by the compiler. A checked text, which has
/// at most 255 tokens, needs about 64: a register is held while a right operand is computed only
/// where the left operand can fail, and each such left operand takes four tokens.
inline constexpr int kMostRegisters = 128;

/// A compiled expression. The tree stays for hoisting.
struct Program {
    SyntaxTree tree;
    InstructionList instructions;
};

/// A node whose value is computed elsewhere, and the operand that holds the value.
struct Replacement {
    NodeIndex node = 0;
    Operand operand;
};

/// Flattens the sub-tree at a node. Nodes with a replacement are taken as inputs.
[[nodiscard]] InstructionList Flatten(const SyntaxTree& tree, NodeIndex root,
                                      std::span<const Replacement> replacements);

/// The same for a sub-tree of y alone, with y as array 0.
[[nodiscard]] InstructionList FlattenOverY(const SyntaxTree& tree, NodeIndex root);

/// The same for separate points, with x as array 0 and y as array 1.
[[nodiscard]] InstructionList FlattenOverPoints(const SyntaxTree& tree, NodeIndex root);

/// The inputs of a run. Arrays are readable up to the next multiple of kPaddedLanes.
struct ProgramInputs {
    std::span<const double* const> arrays;
    std::span<const double> scalars;
    Interruption* interruption = nullptr;
};

/// Runs the instructions over inputs of any length. `values` and `errors` have `count` elements,
/// the errors zeros; where a primitive failed, the value is UndefinedValue and its code beside it.
/// Returns whether one failed. Allocates nothing. A count that is a multiple of kPaddedLanes saves
/// a copy of the last elements; `padding` of them, fewer than kPaddedLanes, may then be anything.
/// When the run is stopped, what is left in `values` and `errors` is of no use.
[[nodiscard]] bool RunInstructions(const InstructionList& list, const KernelTable& kernels,
                                   const ProgramInputs& inputs, std::size_t count, double* values,
                                   std::int32_t* errors, std::size_t padding = 0);

/// A program for a normalised text over a given kernel table (CompileExpression uses the best).
[[nodiscard]] std::shared_ptr<const Program> CompileProgram(std::u16string_view text,
                                                            const KernelTable& kernels);

}  // namespace kalvex
