// Recursive descent over the five operator levels, the loosest first ("-" binds tighter than "+",
// "/" tighter than "*"). A run of equal operators is its first one applied to the left operand and
// the combined rest.
#include "tree_walk.h"

#include <array>
#include <cmath>
#include <utility>

#include "expr/eval_error.h"
#include "numbers/decimal.h"

namespace kalvex::bench {
namespace {

using Node = std::unique_ptr<TreeNode>;
using Evaluate = double (*)(const TreeNode&, double, double);

double Fail(std::int32_t code) {
    if (EvalError == 0) EvalError = code;
    return 1.0;
}

double Number(const TreeNode& node, double, double) {
    return node.number;
}

double VariableX(const TreeNode&, double x, double) {
    return x;
}

double VariableY(const TreeNode&, double, double y) {
    return y;
}

/// Both operands, left first, unless an earlier operation failed.
template <typename Operation>
double Binary(const TreeNode& node, double x, double y, const Operation& operation) {
    const double left = node.left->evaluate(*node.left, x, y);
    const double right = node.right->evaluate(*node.right, x, y);
    return EvalError != 0 ? 1.0 : operation(left, right);
}

double Add(const TreeNode& node, double x, double y) {
    return Binary(node, x, y, [](double a, double b) { return a + b; });
}

double Subtract(const TreeNode& node, double x, double y) {
    return Binary(node, x, y, [](double a, double b) { return a - b; });
}

double Multiply(const TreeNode& node, double x, double y) {
    return Binary(node, x, y, [](double a, double b) { return a * b; });
}

double Divide(const TreeNode& node, double x, double y) {
    return Binary(node, x, y, [](double a, double b) { return b == 0.0 ? Fail(1) : a / b; });
}

double Power(const TreeNode& node, double x, double y) {
    return Binary(node, x, y, [](double a, double b) {
        const bool defined = a > 0.0 || (a == 0.0 && b > 0.0) || (a < 0.0 && b == std::trunc(b));
        return defined ? std::pow(a, b) : Fail(2);
    });
}

double Call(const TreeNode& node, double x, double y) {
    const double value = node.right->evaluate(*node.right, x, y);
    if (EvalError != 0) return 1.0;
    const double result = node.function(value);
    return std::isnan(result) ? Fail(3) : result;
}

struct Function {
    std::u16string_view name;
    double (*value)(double);
};

constexpr std::array<Function, 12> kFunctions = {{
    {u"sin", [](double v) { return std::sin(v); }},
    {u"cos", [](double v) { return std::cos(v); }},
    {u"tg", [](double v) { return std::tan(v); }},
    {u"ln", [](double v) { return v > 0.0 ? std::log(v) : Fail(3); }},
    {u"lg", [](double v) { return v > 0.0 ? std::log10(v) : Fail(3); }},
    {u"exp", [](double v) { return std::exp(v); }},
    {u"sh", [](double v) { return std::sinh(v); }},
    {u"ch", [](double v) { return std::cosh(v); }},
    {u"atg", [](double v) { return std::atan(v); }},
    {u"abs", [](double v) { return std::fabs(v); }},
    {u"int", [](double v) { return std::floor(v); }},
    {u"frac", [](double v) { return v - std::floor(v); }},
}};

/// Level by level: the operator, what it does first and what it does in the rest of its run.
struct Level {
    char16_t sign;
    Evaluate first;
    Evaluate rest;
};

constexpr std::array<Level, 5> kLevels = {{
    {u'+', Add, Add},
    {u'-', Subtract, Add},
    {u'*', Multiply, Multiply},
    {u'/', Divide, Multiply},
    {u'^', Power, Multiply},
}};

Node Make(Evaluate evaluate, Node left = {}, Node right = {}) {
    auto node = std::make_unique<TreeNode>();
    node->evaluate = evaluate;
    node->left = std::move(left);
    node->right = std::move(right);
    return node;
}

Node ParseLevel(std::u16string_view& text, std::size_t level);

bool Take(std::u16string_view& text, std::u16string_view word) {
    if (!text.starts_with(word)) return false;
    text.remove_prefix(word.size());
    return true;
}

Node ParseGroup(std::u16string_view& text) {
    Node inner = ParseLevel(text, 0);
    return inner && Take(text, u")") ? std::move(inner) : Node{};
}

Node ParseOperand(std::u16string_view& text) {
    if (Take(text, u"(")) return ParseGroup(text);
    for (const Function& function : kFunctions) {
        if (!Take(text, std::u16string(function.name) + u"(")) continue;
        Node call = Make(Call, {}, ParseGroup(text));
        call->function = function.value;
        return call->right ? std::move(call) : Node{};
    }
    if (Take(text, u"x")) return Make(VariableX);
    if (Take(text, u"y")) return Make(VariableY);
    const DecimalPrefix number = ParseDecimalPrefix(text);
    if (number.length == 0) return {};
    text.remove_prefix(number.length);
    Node node = Make(Number);
    node->number = number.value;
    return node;
}

Node ParseRest(std::u16string_view& text, std::size_t level) {
    Node left = ParseLevel(text, level + 1);
    if (!left || !Take(text, std::u16string_view(&kLevels[level].sign, 1))) return left;
    Node right = ParseRest(text, level);
    return right ? Make(kLevels[level].rest, std::move(left), std::move(right)) : Node{};
}

Node ParseLevel(std::u16string_view& text, std::size_t level) {
    if (level == kLevels.size()) return ParseOperand(text);
    Node left = ParseLevel(text, level + 1);
    if (!left || !Take(text, std::u16string_view(&kLevels[level].sign, 1))) return left;
    Node right = ParseRest(text, level);
    return right ? Make(kLevels[level].first, std::move(left), std::move(right)) : Node{};
}

}  // namespace

std::unique_ptr<TreeNode> ParseTree(std::u16string_view text) {
    Node root = ParseLevel(text, 0);
    return text.empty() ? std::move(root) : Node{};
}

double WalkTree(const TreeNode& root, double x, double y) {
    EvalError = 0;
    const double value = root.evaluate(root, x, y);
    return EvalError == 0 ? value : UndefinedValue;
}

}  // namespace kalvex::bench
