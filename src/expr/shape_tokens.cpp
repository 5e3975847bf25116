// A token is a sign or bracket, a number, a variable or the head of a call: a function's name with
// its "(". The reduction looks for the leftmost place where one of six patterns matches, replaces
// the match by one operand and starts again at the first token. The restart is how the result is
// defined. As the stream is short (kShapeCapacity), it costs at most some ten thousand comparisons.
#include "expr/shape_tokens.h"

#include <algorithm>
#include <array>
#include <span>

#include "expr/names.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

struct Token {
    ShapeToken shape = ShapeToken::Operand;
    std::size_t length = 0;  ///< characters consumed; 0: no token here
};

constexpr std::u16string_view kOperators = u"+-/*^";

Token PunctuationAt(char16_t c) {
    if (kOperators.find(c) != std::u16string_view::npos) return {ShapeToken::Operator, 1};
    if (c == u',') return {ShapeToken::Comma, 1};
    if (c == u'(') return {ShapeToken::Open, 1};
    if (c == u')') return {ShapeToken::Close, 1};
    return {};
}

/// The head of a call; no token where a function's name stands without "(". No name is the
/// beginning of another, so the order in which they are tried does not matter.
Token HeadAt(std::u16string_view rest) {
    for (const FunctionName& function : kFunctionNames) {
        if (!rest.starts_with(function.name)) continue;
        const std::size_t bracket = function.name.size();
        if (bracket == rest.size() || rest[bracket] != u'(') return {};
        return {static_cast<ShapeToken>(function.arity), bracket + 1};
    }
    return {};
}

Token TokenAt(std::u16string_view rest) {
    const Token punctuation = PunctuationAt(rest.front());
    if (punctuation.length > 0) return punctuation;
    const std::size_t digits = ParseDecimalPrefix(rest).length;
    if (digits > 0) return {ShapeToken::Operand, digits};
    if (rest.front() == u'x' || rest.front() == u'y') return {ShapeToken::Operand, 1};
    return HeadAt(rest);
}

using enum ShapeToken;
constexpr std::array kOperation = {Operand, Operator, Operand};
constexpr std::array kBrackets = {Open, Operand, Close};
constexpr std::array kCall1 = {Head1, Operand, Close};
constexpr std::array kCall2 = {Head2, Operand, Comma, Operand, Close};
constexpr std::array kCall3 = {Head3, Operand, Comma, Operand, Comma, Operand, Close};
constexpr std::array kCall4 = {Head4,   Operand, Comma,   Operand, Comma,
                               Operand, Comma,   Operand, Close};
using Pattern = std::span<const ShapeToken>;
constexpr std::array<Pattern, 6> kPatterns = {kOperation, kBrackets, kCall1,
                                              kCall2,     kCall3,    kCall4};

/// Length of the pattern that begins a rest of the stream; 0: none.
std::size_t MatchAt(std::span<const ShapeToken> rest) {
    for (const Pattern pattern : kPatterns) {
        if (rest.size() < pattern.size()) continue;
        if (std::equal(pattern.begin(), pattern.end(), rest.begin())) return pattern.size();
    }
    return 0;
}

/// Takes out the tokens that a reduction has used up.
void CompactShape(std::vector<ShapeToken>& tokens) {
    std::erase(tokens, Deleted);
}

/// Replaces the leftmost match; false when there is none.
bool ReduceOnce(std::vector<ShapeToken>& tokens) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const std::size_t length = MatchAt(std::span(tokens).subspan(i));
        if (length == 0) continue;
        tokens[i] = Operand;
        std::fill_n(tokens.begin() + static_cast<std::ptrdiff_t>(i + 1), length - 1, Deleted);
        CompactShape(tokens);
        return true;
    }
    return false;
}

}  // namespace

std::optional<std::vector<ShapeToken>> TokenizeShape(std::u16string_view text) {
    std::vector<ShapeToken> tokens;
    for (std::size_t at = 0; at < text.size();) {
        const Token token = TokenAt(text.substr(at));
        if (token.length == 0 || tokens.size() == kShapeCapacity) return std::nullopt;
        tokens.push_back(token.shape);
        at += token.length;
    }
    return tokens;
}

std::size_t ShapeLength(std::u16string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size() && count <= kShapeCapacity; ++count) {
        const std::size_t length = TokenAt(text.substr(at)).length;
        if (length == 0) break;
        at += length;
    }
    return count;
}

void ReduceShape(std::vector<ShapeToken>& tokens) {
    while (ReduceOnce(tokens)) {
    }
}

bool CheckCommaPlacement(std::u16string_view text) {
    std::optional<std::vector<ShapeToken>> tokens = TokenizeShape(text);
    if (!tokens) return false;
    ReduceShape(*tokens);
    // KEEP: an operand in front is enough; texts such as "x,y" are accepted here.
    return tokens->size() == 1 || (!tokens->empty() && tokens->front() == Operand);
}

}  // namespace kalvex
