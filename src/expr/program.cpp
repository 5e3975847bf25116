// Post-order flattening with registers taken like a stack: an operation's result goes to the
// lowest register that is free once its operands are consumed. A product that feeds the very next
// sum or difference is merged into it; the merged operation still rounds twice.
#include "expr/program.h"

#include <algorithm>

namespace kalvex {
namespace {

struct Flattener {
    const SyntaxTree& tree;
    std::span<const Replacement> replacements;
    InstructionList list;
    int used = 0;  ///< registers that hold results
};

const Node& NodeAt(const Flattener& flattener, NodeIndex index) {
    return flattener.tree.nodes[static_cast<std::size_t>(index)];
}

const Replacement* FindReplacement(const Flattener& flattener, NodeIndex index) {
    const auto found = std::find_if(flattener.replacements.begin(), flattener.replacements.end(),
                                    [index](const Replacement& r) { return r.node == index; });
    return found == flattener.replacements.end() ? nullptr : &*found;
}

OpCode MergedOp(OpCode op, bool productIsLeft) {
    if (op == OpCode::Add) return OpCode::MultiplyAdd;
    return productIsLeft ? OpCode::MultiplySubtract : OpCode::SubtractMultiplied;
}

/// Merges the product computed last into a sum or difference that uses it.
bool MergeProduct(Flattener& flattener, Instruction& sum) {
    if (sum.op != OpCode::Add && sum.op != OpCode::Subtract) return false;
    if (flattener.list.code.empty()) return false;
    const Instruction product = flattener.list.code.back();
    if (product.op != OpCode::Multiply) return false;
    const auto isProduct = [&product](const Operand& operand) {
        return operand.kind == OperandKind::Register && operand.index == product.target;
    };
    const bool left = isProduct(sum.operands[0]);
    if (!left && !isProduct(sum.operands[1])) return false;
    const Operand other = sum.operands[left ? 1 : 0];
    sum.op = MergedOp(sum.op, left);
    sum.operandCount = 3;
    sum.operands = {product.operands[0], product.operands[1], other, {}};
    flattener.list.code.pop_back();
    return true;
}

Operand Emit(Flattener& flattener, NodeIndex index);

/// Whether the right operand is evaluated first: only where no error code depends on it.
bool TakesRightFirst(const Flattener& flattener, const Node& node) {
    if (node.operandCount != 2) return false;
    const Node& left = NodeAt(flattener, node.operands[0]);
    const Node& right = NodeAt(flattener, node.operands[1]);
    return !left.canFail && right.registers > left.registers;
}

void EmitOperands(Flattener& flattener, const Node& node, Instruction& instruction) {
    if (TakesRightFirst(flattener, node)) {
        instruction.operands[1] = Emit(flattener, node.operands[1]);
        instruction.operands[0] = Emit(flattener, node.operands[0]);
        return;
    }
    for (std::size_t i = 0; i < node.operandCount; ++i) {
        instruction.operands[i] = Emit(flattener, node.operands[i]);
    }
}

Operand EmitOperation(Flattener& flattener, const Node& node) {
    const int firstFree = flattener.used;
    Instruction instruction;
    instruction.op = node.op;
    instruction.operandCount = node.operandCount;
    instruction.immediate = node.immediate;
    EmitOperands(flattener, node, instruction);
    MergeProduct(flattener, instruction);
    instruction.target = static_cast<std::uint16_t>(firstFree);
    flattener.used = firstFree + 1;
    flattener.list.registerCount = std::max(flattener.list.registerCount, flattener.used);
    flattener.list.code.push_back(instruction);
    return {OperandKind::Register, instruction.target, 0.0};
}

Operand Emit(Flattener& flattener, NodeIndex index) {
    if (const Replacement* const replacement = FindReplacement(flattener, index)) {
        return replacement->operand;
    }
    const Node& node = NodeAt(flattener, index);
    switch (node.kind) {
        case NodeKind::X:
            return {OperandKind::Array, 0, 0.0};
        case NodeKind::Y:
            return {OperandKind::Scalar, 0, 0.0};
        case NodeKind::Operation:
            return EmitOperation(flattener, node);
        case NodeKind::Constant:
            break;
    }
    return {OperandKind::Constant, 0, node.value};
}

}  // namespace

InstructionList Flatten(const SyntaxTree& tree, NodeIndex root,
                        std::span<const Replacement> replacements) {
    Flattener flattener{tree, replacements, {}, 0};
    flattener.list.result = Emit(flattener, root);
    return std::move(flattener.list);
}

}  // namespace kalvex
