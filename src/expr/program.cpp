// The tree is walked in post-order: operands first, then their operation. Registers are used like a
// stack: an operation's result goes to the lowest register that is free once its operands are
// consumed. Instructions are merged, so that one pass over the points does the work of two or
// three: a product into the sum or difference that uses it next, a number that is added to this,
// and a power that is a factor of the product. A merged instruction rounds as often as its parts
// would, so merging changes no result.
#include "expr/program.h"

#include <algorithm>

namespace kalvex {
namespace {

struct Flattener {
    const SyntaxTree& tree;
    std::span<const Replacement> replacements;
    InstructionList list;
    int used = 0;  ///< registers that hold results
    Operand y = {OperandKind::Scalar, 0, 0.0};
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

/// Whether an operand is the result of the instruction computed last.
bool IsLastResult(const Flattener& flattener, const Operand& operand) {
    const std::vector<Instruction>& code = flattener.list.code;
    return operand.kind == OperandKind::Register && !code.empty() &&
           code.back().target == operand.index;
}

bool IsArray(const Operand& operand) {
    return operand.kind == OperandKind::Register || operand.kind == OperandKind::Array;
}

bool HasFixedPower(const Instruction& instruction) {
    return instruction.op == OpCode::IntegerPower && instruction.immediate >= kFirstFixedPower &&
           instruction.immediate <= kLastFixedPower && IsArray(instruction.operands[0]);
}

/// factor * power + rest, where the power is the instruction computed last.
void TakePower(Flattener& flattener, Instruction& sum, double factor, const Operand& rest) {
    const Instruction power = flattener.list.code.back();
    sum.op = OpCode::PowerTerm;
    sum.operandCount = 3;
    sum.immediate = power.immediate;
    sum.operands = {power.operands[0], {OperandKind::Constant, 0, factor}, rest, {}};
    flattener.list.code.pop_back();
}

/// Merges a power computed last into the term k * power + rest or rest - k * power, or into the sum
/// power + rest. (rest - k * power becomes rest + (-k) * power: negating a factor negates the
/// product exactly.)
bool MergePower(Flattener& flattener, Instruction& sum) {
    if (flattener.list.code.empty() || !HasFixedPower(flattener.list.code.back())) return false;
    if (sum.op == OpCode::Add) {
        const bool left = IsLastResult(flattener, sum.operands[0]);
        const Operand rest = sum.operands[left ? 1 : 0];
        if (!IsArray(rest) || (!left && !IsLastResult(flattener, sum.operands[1]))) return false;
        if (IsLastResult(flattener, rest)) return false;
        TakePower(flattener, sum, 1.0, rest);
        return true;
    }
    const bool isSum = sum.op == OpCode::MultiplyAdd;
    if (!isSum && sum.op != OpCode::SubtractMultiplied) return false;
    const bool left = sum.operands[0].kind == OperandKind::Constant;
    const Operand& factor = sum.operands[left ? 0 : 1];
    const Operand& power = sum.operands[left ? 1 : 0];
    const Operand rest = sum.operands[2];
    if (factor.kind != OperandKind::Constant || !IsLastResult(flattener, power)) return false;
    if (!IsArray(rest) || IsLastResult(flattener, rest)) return false;
    TakePower(flattener, sum, isSum ? factor.value : -factor.value, rest);
    return true;
}

OpCode WithAddend(OpCode op) {
    switch (op) {
        case OpCode::MultiplyAdd:
            return OpCode::MultiplyAddPlus;
        case OpCode::MultiplySubtract:
            return OpCode::MultiplySubtractPlus;
        case OpCode::SubtractMultiplied:
            return OpCode::SubtractMultipliedPlus;
        default:
            return op;
    }
}

/// Merges a number that is added to a merged product, or subtracted from it.
bool MergeAddend(Flattener& flattener, Instruction& sum) {
    if (sum.op != OpCode::Add && sum.op != OpCode::Subtract) return false;
    const bool numberIsRight = sum.operands[1].kind == OperandKind::Constant;
    const Operand number = sum.operands[numberIsRight ? 1 : 0];
    if (number.kind != OperandKind::Constant) return false;
    if (!numberIsRight && sum.op == OpCode::Subtract) return false;
    if (!IsLastResult(flattener, sum.operands[numberIsRight ? 0 : 1])) return false;
    const Instruction product = flattener.list.code.back();
    if (WithAddend(product.op) == product.op) return false;
    const double addend = sum.op == OpCode::Add ? number.value : -number.value;
    sum = product;
    sum.op = WithAddend(product.op);
    sum.operandCount = 4;
    sum.operands[3] = {OperandKind::Constant, 0, addend};
    flattener.list.code.pop_back();
    return true;
}

Operand Emit(Flattener& flattener, NodeIndex index);

/// Whether the right operand is evaluated first. That saves registers, but is allowed only where
/// the left operand cannot fail: else the wrong one of two error codes might be reported.
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
    if (!MergeAddend(flattener, instruction)) {
        MergeProduct(flattener, instruction);
        MergePower(flattener, instruction);
    }
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
            return flattener.y;
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
    Flattener flattener{tree, replacements, {}};
    flattener.list.result = Emit(flattener, root);
    return std::move(flattener.list);
}

InstructionList FlattenOverY(const SyntaxTree& tree, NodeIndex root) {
    Flattener flattener{tree, {}, {}};
    flattener.y = {OperandKind::Array, 0, 0.0};
    flattener.list.result = Emit(flattener, root);
    return std::move(flattener.list);
}

InstructionList FlattenOverPoints(const SyntaxTree& tree, NodeIndex root) {
    Flattener flattener{tree, {}, {}};
    flattener.y = {OperandKind::Array, 1, 0.0};
    flattener.list.result = Emit(flattener, root);
    return std::move(flattener.list);
}

}  // namespace kalvex
