// Operator-precedence parsing of a checked text into a tree. The delimiters ",+-*/^" are six
// levels, each binding tighter than the one before it: "-" tighter than "+", "/" tighter than "*".
//
// A run of one level is the first operator applied to the left value and to the combined rest, and
// within the rest the operator turns into its companion: a-b-c is a-(b+c), a/b/c is a/(b*c), a^b^c
// is a^(b*c). Mathematically that is grouping from the left; in floating point it is this grouping
// and no other, and every result depends on it to the last bit.
//
// The checker lets some texts pass that are not expressions, such as "x+", "x.5" and calls with too
// many arguments. They compile to the constant not-a-number, so that nothing is drawn for them.
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "expr/evaluator.h"
#include "expr/program.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

constexpr std::u16string_view kOperators = u",+-*/^";
constexpr std::u16string_view kDelimiters = u",+-*/^()";
constexpr int kLevels = 6;

/// Deeper nested brackets are refused, to bound the recursion. A checked text has fewer.
constexpr int kDeepestNesting = 256;

/// Trees with more nodes are refused for the same reason. A checked text has fewer. (The length of
/// the text itself is no measure, because a number may have any number of digits.)
constexpr std::size_t kMostNodes = 1024;

struct Parser {
    std::u16string_view text;
    SyntaxTree& tree;
    std::size_t at = 0;
    int depth = 0;
};

using Parsed = std::optional<NodeIndex>;

Parsed ParseRun(Parser& parser, int level);

/// What the first operator of a run does.
OpCode FirstOp(int level) {
    constexpr OpCode kFirst[] = {OpCode::Add,      OpCode::Add,    OpCode::Subtract,
                                 OpCode::Multiply, OpCode::Divide, OpCode::Power};
    return kFirst[level];
}

/// What the operators of a run do from the second one on.
OpCode RestOp(int level) {
    // KEEP: the rest of a run is summed or multiplied up first; every bit of the results depends on
    // this order.
    constexpr OpCode kRest[] = {OpCode::Add,      OpCode::Add,      OpCode::Add,
                                OpCode::Multiply, OpCode::Multiply, OpCode::Multiply};
    return kRest[level];
}

bool IsAt(const Parser& parser, char16_t character) {
    return parser.at < parser.text.size() && parser.text[parser.at] == character;
}

bool AtOperator(const Parser& parser, int level) {
    return IsAt(parser, kOperators[static_cast<std::size_t>(level)]);
}

Parsed Combine(Parser& parser, OpCode op, NodeIndex left, NodeIndex right) {
    const NodeIndex operands[] = {left, right};
    return AddOperation(parser.tree, op, operands);
}

/// Parses what stands between brackets, with `parse` called behind the opening one.
template <typename Parse>
auto InBrackets(Parser& parser, Parse parse) -> decltype(parse()) {
    ++parser.at;
    if (++parser.depth > kDeepestNesting) return std::nullopt;
    auto inside = parse();
    --parser.depth;
    if (!inside || !IsAt(parser, u')')) return std::nullopt;
    ++parser.at;
    return inside;
}

using Arguments = std::vector<NodeIndex>;

std::optional<Arguments> ParseArguments(Parser& parser) {
    Arguments arguments;
    for (;;) {
        const Parsed argument = ParseRun(parser, 1);
        if (!argument) return std::nullopt;
        arguments.push_back(*argument);
        if (!AtOperator(parser, 0)) return arguments;
        ++parser.at;
    }
}

Parsed ParseCall(Parser& parser, std::u16string_view name) {
    const auto* const function =
        std::find_if(kFunctionNames.begin(), kFunctionNames.end(),
                     [name](const FunctionName& candidate) { return candidate.name == name; });
    if (function == kFunctionNames.end()) return std::nullopt;
    const auto arguments = InBrackets(parser, [&parser] { return ParseArguments(parser); });
    if (!arguments || static_cast<int>(arguments->size()) != function->arity) return std::nullopt;
    const auto number = static_cast<FunctionNumber>(function - kFunctionNames.begin());
    return AddOperation(parser.tree, FunctionOp(number), *arguments);
}

/// The number at the start of a piece of the text. A zero counts only if the piece starts with the
/// digit 0 or is nothing but the number (" 0", ".0"). What follows the number in the same piece, as
/// in "1.2.3", is ignored.
std::optional<double> NumberOf(std::u16string_view piece) {
    const DecimalPrefix prefix = ParseDecimalPrefix(piece);
    if (prefix.length == 0) return std::nullopt;
    const bool isNumber =
        prefix.value != 0.0 || piece.front() == u'0' || prefix.length == piece.size();
    return isNumber ? std::optional(prefix.value) : std::nullopt;
}

Parsed ParseOperand(Parser& parser) {
    if (parser.tree.nodes.size() > kMostNodes) return std::nullopt;
    if (IsAt(parser, u'(')) {
        return InBrackets(parser, [&parser] { return ParseRun(parser, 1); });
    }
    const std::size_t end =
        std::min(parser.text.find_first_of(kDelimiters, parser.at), parser.text.size());
    const std::u16string_view piece = parser.text.substr(parser.at, end - parser.at);
    parser.at = end;
    if (const auto number = NumberOf(piece)) return AddConstant(parser.tree, *number);
    if (IsAt(parser, u'(')) return ParseCall(parser, piece);
    if (piece == u"x") return AddVariable(parser.tree, NodeKind::X);
    if (piece == u"y") return AddVariable(parser.tree, NodeKind::Y);
    return std::nullopt;
}

Parsed ParseTighter(Parser& parser, int level) {
    return level + 1 < kLevels ? ParseRun(parser, level + 1) : ParseOperand(parser);
}

/// Operands of one level's run, combined from the right.
Parsed ParseRun(Parser& parser, int level) {
    std::vector<NodeIndex> operands;
    for (;;) {
        const Parsed operand = ParseTighter(parser, level);
        if (!operand) return std::nullopt;
        operands.push_back(*operand);
        if (!AtOperator(parser, level)) break;
        ++parser.at;
    }
    NodeIndex combined = operands.back();
    for (std::size_t i = operands.size() - 1; i > 0; --i) {
        const OpCode op = i == 1 ? FirstOp(level) : RestOp(level);
        combined = *Combine(parser, op, operands[i - 1], combined);
    }
    return combined;
}

}  // namespace

std::shared_ptr<const Program> CompileProgram(std::u16string_view text,
                                              const KernelTable& kernels) {
    const auto program = std::make_shared<Program>();
    program->tree.kernels = &kernels;
    Parser parser{text, program->tree};
    const Parsed root = ParseRun(parser, 1);
    const bool complete = root && parser.at == text.size();
    const auto notANumber = [&program] {
        return AddConstant(program->tree, std::numeric_limits<double>::quiet_NaN());
    };
    program->tree.root = complete ? *root : notANumber();
    program->instructions = Flatten(program->tree, program->tree.root, {});
    if (program->instructions.registerCount > kMostRegisters) {
        program->tree.root = notANumber();
        program->instructions = Flatten(program->tree, program->tree.root, {});
    }
    return program;
}

CompiledExpression CompileExpression(std::u16string_view text) {
    return {CompileProgram(text, ActiveKernels())};
}

void FreeExpression(CompiledExpression& expression) {
    expression.program.reset();
}

}  // namespace kalvex
