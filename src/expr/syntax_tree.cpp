// Every node stores whether it can fail, which variables it depends on and how many registers it
// needs; program.cpp and grid_evaluator.cpp use these facts. The register count follows Sethi and
// Ullman ("The generation of optimal code for arithmetic expressions", J. ACM 17, 1970), with one
// restriction: an operand that can fail is never evaluated after its right neighbour, because the
// first failing operation in written order decides the error code.
#include "expr/syntax_tree.h"

#include <algorithm>
#include <cmath>

#include "expr/function_table.h"

namespace kalvex {
namespace {

bool OperationCanFail(OpCode op, std::span<const Node* const> operands) {
    switch (op) {
        case OpCode::Add:
        case OpCode::Subtract:
        case OpCode::Multiply:
        case OpCode::IntegerPower:
            return false;
        case OpCode::Divide:
            return operands[1]->kind != NodeKind::Constant || operands[1]->value == 0.0;
        default:
            return !IsFunction(op) || CanFail(FunctionAt(FunctionOf(op)));
    }
}

/// Registers for operands that are evaluated one after the other, each result held in a register
/// until the last one is there. Constants and variables need none.
int RegistersInOrder(std::span<const Node* const> operands) {
    int held = 0;
    int most = 0;
    for (const Node* operand : operands) {
        most = std::max(most, held + operand->registers);
        if (operand->kind == NodeKind::Operation) ++held;
    }
    return std::max(most, 1);
}

int RegistersFor(std::span<const Node* const> operands) {
    const int inOrder = RegistersInOrder(operands);
    if (operands.size() != 2 || operands[0]->canFail) return inOrder;
    const Node* const swapped[] = {operands[1], operands[0]};
    return std::min(inOrder, RegistersInOrder(swapped));
}

/// Computes an operation over constants. Returns false when it fails; the operation then stays in
/// the tree, so that evaluating it reports the error.
bool Fold(const SyntaxTree& tree, const Node& node, std::span<const Node* const> operands,
          double& value) {
    Source sources[kMostOperands];
    for (std::size_t i = 0; i < operands.size(); ++i)
        sources[i] = {nullptr, operands[i]->value};
    double out[kPaddedLanes];
    std::int32_t errors[kPaddedLanes] = {};
    const KernelCall call{out, sources, kPaddedLanes, errors, node.immediate, kPaddedLanes - 1};
    const bool failed = tree.kernels->kernels[static_cast<std::size_t>(node.op)](call);
    value = out[0];
    return !failed;
}

/// Replaces a power with a constant exponent by a square root or a product, where that is how the
/// general power computes it too. The square of a variable becomes a multiplication, because
/// program.cpp merges multiplications with sums.
void SpecialisePower(Node& node, const Node& base, const Node& exponent) {
    if (exponent.kind != NodeKind::Constant) return;
    const double n = exponent.value;
    const bool isVariable = base.kind == NodeKind::X || base.kind == NodeKind::Y;
    if (n == 2.0 && isVariable) {
        node.op = OpCode::Multiply;
        node.operands[1] = node.operands[0];
    } else if (n == 0.5) {
        node.op = OpCode::SquareRoot;
        node.operandCount = 1;
    } else if (n == std::floor(n) && std::fabs(n) <= kLargestIntegerPower) {
        node.op = OpCode::IntegerPower;
        node.operandCount = 1;
        node.immediate = static_cast<int>(n);
    }
}

NodeIndex Append(SyntaxTree& tree, const Node& node) {
    tree.nodes.push_back(node);
    return static_cast<NodeIndex>(tree.nodes.size() - 1);
}

}  // namespace

NodeIndex AddConstant(SyntaxTree& tree, double value) {
    Node node;
    node.value = value;
    return Append(tree, node);
}

NodeIndex AddVariable(SyntaxTree& tree, NodeKind variable) {
    Node node;
    node.kind = variable;
    node.usesX = variable == NodeKind::X;
    node.usesY = variable == NodeKind::Y;
    return Append(tree, node);
}

NodeIndex AddOperation(SyntaxTree& tree, OpCode op, std::span<const NodeIndex> operands) {
    Node node;
    node.kind = NodeKind::Operation;
    node.op = op;
    node.operandCount = static_cast<std::uint8_t>(operands.size());
    std::copy(operands.begin(), operands.end(), node.operands.begin());
    if (op == OpCode::Power) {
        SpecialisePower(node, tree.nodes[static_cast<std::size_t>(operands[0])],
                        tree.nodes[static_cast<std::size_t>(operands[1])]);
    }

    const Node* inputs[kMostOperands];
    bool allConstant = true;
    for (std::size_t i = 0; i < node.operandCount; ++i) {
        const Node& input = tree.nodes[static_cast<std::size_t>(node.operands[i])];
        inputs[i] = &input;
        node.usesX |= input.usesX;
        node.usesY |= input.usesY;
        node.canFail |= input.canFail;
        allConstant &= input.kind == NodeKind::Constant;
    }
    const std::span<const Node* const> inputSpan(inputs, node.operandCount);
    double value = 0.0;
    if (allConstant && Fold(tree, node, inputSpan, value)) return AddConstant(tree, value);
    node.canFail |= OperationCanFail(node.op, inputSpan);
    node.registers = static_cast<std::int16_t>(RegistersFor(inputSpan));
    return Append(tree, node);
}

}  // namespace kalvex
