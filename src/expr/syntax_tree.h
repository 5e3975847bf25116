// The tree of an expression, as nodes in one array. Folding of constants happens while it is
// made, with the kernels that evaluation uses, so that folding never changes a result.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "expr/kernels.h"

namespace kalvex {

/// Index of a node in SyntaxTree::nodes.
using NodeIndex = std::int32_t;

enum class NodeKind : std::uint8_t { Constant, X, Y, Operation };

struct Node {
    NodeKind kind = NodeKind::Constant;
    OpCode op = OpCode::Add;
    std::uint8_t operandCount = 0;
    bool canFail = false;  ///< some primitive of the sub-tree may fail its domain test
    bool usesX = false;
    bool usesY = false;
    std::int16_t registers = 0;  ///< registers that evaluating the sub-tree needs
    int immediate = 0;           ///< exponent of IntegerPower
    double value = 0.0;          ///< of a constant
    std::array<NodeIndex, kMostOperands> operands = {};
};

struct SyntaxTree {
    std::vector<Node> nodes;
    NodeIndex root = 0;
    const KernelTable* kernels = nullptr;
};

[[nodiscard]] NodeIndex AddConstant(SyntaxTree& tree, double value);
[[nodiscard]] NodeIndex AddVariable(SyntaxTree& tree, NodeKind variable);

/// Adds an operation over nodes of the tree, or the constant that it amounts to. `Power` with a
/// constant exponent becomes a product or a square root where that is what its value demands.
[[nodiscard]] NodeIndex AddOperation(SyntaxTree& tree, OpCode op,
                                     std::span<const NodeIndex> operands);

}  // namespace kalvex
