// Every instruction is written by a pattern in which the letters a to d stand for its operands and
// n for its fixed exponent.
#include "expr/program_text.h"

#include <array>
#include <cmath>
#include <string_view>

#include "base/encoding.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

/// What the arrays and scalars of an instruction list are called: the variable, and the capital
/// letter of the parts computed beforehand.
struct Names {
    std::string_view array = "x";
    std::string_view scalar = "y";
};

constexpr Names kOverX;
constexpr Names kOverY = {"y", ""};

struct OperationText {
    std::string_view label;    ///< in the tree
    std::string_view formula;  ///< in the program
};

/// By OpCode, up to the functions.
constexpr auto kOperations = std::to_array<OperationText>({
    {"+", "a + b"},
    {"-", "a - b"},
    {"*", "a * b"},
    {"/", "a / b"},
    {"^", "pow(a, b)"},
    {"^ n", "a ^ n"},
    {"sqrt", "sqrt(a)"},
    {"", "a * b + c"},
    {"", "a * b - c"},
    {"", "c - a * b"},
    {"", "(a * b + c) + d"},
    {"", "(a * b - c) + d"},
    {"", "(c - a * b) + d"},
    {"", "b * a ^ n + c"},
});
static_assert(kOperations.size() == static_cast<std::size_t>(OpCode::Function));

std::string NumberOf(double value) {
    if (value == 0.0 && std::signbit(value)) return "-0";
    return FormatShortest(value);
}

std::string NameOf(OpCode function) {
    return ToUtf8(kFunctionNames[static_cast<std::size_t>(FunctionOf(function))].name);
}

std::string Label(const Node& node) {
    if (IsFunction(node.op)) return NameOf(node.op);
    if (node.op == OpCode::IntegerPower) return "^ " + std::to_string(node.immediate);
    return std::string(kOperations[static_cast<std::size_t>(node.op)].label);
}

void AppendNode(const SyntaxTree& tree, NodeIndex index, std::size_t depth, std::string& text) {
    const Node& node = tree.nodes[static_cast<std::size_t>(index)];
    text.append(2 * depth, ' ');
    switch (node.kind) {
        case NodeKind::Constant:
            text += NumberOf(node.value);
            break;
        case NodeKind::X:
            text += 'x';
            break;
        case NodeKind::Y:
            text += 'y';
            break;
        case NodeKind::Operation:
            text += Label(node);
            break;
    }
    text += node.canFail ? " may fail\n" : "\n";
    for (std::size_t i = 0; i < node.operandCount; ++i)
        AppendNode(tree, node.operands[i], depth + 1, text);
}

/// Index 0 is the variable itself, the others are parts computed beforehand.
std::string InputName(std::string_view variable, std::uint16_t index) {
    if (index == 0) return std::string(variable);
    return (variable == "x" ? "X" : "Y") + std::to_string(index);
}

std::string OperandText(const Operand& operand, const Names& names) {
    switch (operand.kind) {
        case OperandKind::Register:
            return "r" + std::to_string(operand.index);
        case OperandKind::Array:
            return InputName(names.array, operand.index);
        case OperandKind::Scalar:
            return InputName(names.scalar, operand.index);
        case OperandKind::Constant:
            break;
    }
    return NumberOf(operand.value);
}

std::string CallText(const Instruction& instruction, const Names& names) {
    std::string text = NameOf(instruction.op);
    for (std::size_t i = 0; i < instruction.operandCount; ++i)
        text += (i == 0 ? "(" : ", ") + OperandText(instruction.operands[i], names);
    return text + ")";
}

std::string FormulaText(const Instruction& instruction, const Names& names) {
    if (IsFunction(instruction.op)) return CallText(instruction, names);
    std::string text;
    for (const char c : kOperations[static_cast<std::size_t>(instruction.op)].formula) {
        if (c >= 'a' && c <= 'd')
            text += OperandText(instruction.operands[static_cast<std::size_t>(c - 'a')], names);
        else if (c == 'n')
            text += std::to_string(instruction.immediate);
        else
            text += c;
    }
    return text;
}

std::string ListText(const InstructionList& list, const Names& names, const std::string& result) {
    std::string text;
    for (const Instruction& instruction : list.code) {
        text += "r" + std::to_string(instruction.target) + " = " + FormulaText(instruction, names) +
                "\n";
    }
    return text + result + " = " + OperandText(list.result, names) + "\n";
}

}  // namespace

std::string TreeText(const SyntaxTree& tree) {
    std::string text;
    AppendNode(tree, tree.root, 0, text);
    return text;
}

std::string ProgramText(const InstructionList& list) {
    return ListText(list, kOverX, "value");
}

std::string GridText(const GridPlan& plan) {
    std::string text;
    for (std::size_t i = 0; i < plan.columns.size(); ++i)
        text += ListText(plan.columns[i], kOverX, "X" + std::to_string(i + 1));
    for (std::size_t i = 0; i < plan.rows.size(); ++i)
        text += ListText(plan.rows[i], kOverY, "Y" + std::to_string(i + 1));
    return text + ProgramText(plan.body);
}

}  // namespace kalvex
