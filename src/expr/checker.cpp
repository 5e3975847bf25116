// Each rule is a function of the text. All but the last look at single characters and names; the
// last one cuts the text into tokens. A rule returns its code and the id of its message, or code 0
// when the text passes. The order of the rules is part of the language: a text that breaks several
// of them gets the message of the first.
#include "expr/checker.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "expr/names.h"
#include "expr/shape_tokens.h"
#include "numbers/decimal.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

struct Verdict {
    std::int32_t code = 0;
    StringId message = StringId::Success;
};

constexpr std::u16string_view kSigns = u"+-/*^,";
// KEEP: the point cuts lexemes too, so "2.5" is "2" and "5". Texts such as "1.2.3" and "x.5" pass
// all rules because of it; a lone "." has no lexeme that could be unknown, but is no token either
// and fails the structural test.
constexpr std::u16string_view kDelimiters = u"*^()+-/.,";

bool IsSign(std::u16string_view text, std::size_t at) {
    return kSigns.find(text[at]) != std::u16string_view::npos;
}

Verdict CheckEmpty(std::u16string_view text, CheckMode) {
    if (text.empty()) return {-11, StringId::EmptyString};
    return {};
}

Verdict CheckBrackets(std::u16string_view text, CheckMode) {
    std::size_t depth = 0;
    for (const char16_t c : text) {
        if (c == u')' && depth == 0) return {-1, StringId::TooManyClosing};
        if (c == u'(') ++depth;
        if (c == u')') --depth;
    }
    if (depth != 0) return {-2, StringId::UnevenBrackets};
    return {};
}

Verdict CheckBeginning(std::u16string_view text, CheckMode) {
    constexpr std::u16string_view kBadBeginnings = u"*/^,";
    if (kBadBeginnings.find(text.front()) == std::u16string_view::npos) return {};
    return {-3, StringId::BadBeginning};
}

Verdict CheckNeighbours(std::u16string_view text, CheckMode) {
    // KEEP: the first two characters are never compared; normalised texts begin with "0" there.
    for (std::size_t i = 2; i < text.size(); ++i) {
        if (IsSign(text, i - 1) && IsSign(text, i)) return {-5, StringId::NextTwoCharacters};
    }
    return {};
}

bool IsKnownLexeme(std::u16string_view lexeme, CheckMode mode) {
    if (lexeme == u"x") return true;
    if (lexeme == u"y" && mode == CheckMode::TwoVariables) return true;
    const auto equals = [lexeme](const FunctionName& f) { return f.name == lexeme; };
    return std::ranges::any_of(kFunctionNames, equals) || IsWholeDecimal(lexeme);
}

Verdict CheckLexemes(std::u16string_view text, CheckMode mode) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(kDelimiters, at), text.size());
        const std::u16string_view lexeme = text.substr(at, end - at);
        if (!lexeme.empty() && !IsKnownLexeme(lexeme, mode)) return {-6, StringId::UnknownLexeme};
        at = end + 1;
    }
    return {};
}

Verdict CheckInsideBrackets(std::u16string_view text, CheckMode) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i > 0 && text[i] == u')' && IsSign(text, i - 1)) {
            return {-6, StringId::SignBeforeClosing};
        }
        if (i + 1 < text.size() && text[i] == u'(' && IsSign(text, i + 1)) {
            return {-6, StringId::SignAfterOpening};
        }
    }
    return {};
}

/// Whether every occurrence of a name is followed by "(". The search goes on behind the end of
/// each occurrence, so overlapping ones are not seen.
bool IsAlwaysCalled(std::u16string_view text, std::u16string_view name) {
    std::size_t at = text.find(name);
    while (at != std::u16string_view::npos) {
        at += name.size();
        if (at == text.size() || text[at] != u'(') return false;
        at = text.find(name, at);
    }
    return true;
}

Verdict CheckCalls(std::u16string_view text, CheckMode) {
    for (const FunctionName& function : kFunctionNames) {
        if (!IsAlwaysCalled(text, function.name)) return {-7, StringId::NameWithoutBracket};
    }
    return {};
}

std::size_t CountOccurrences(std::u16string_view text, std::u16string_view name) {
    std::size_t count = 0;
    for (std::size_t at = text.find(name); at != std::u16string_view::npos;
         at = text.find(name, at + 1)) {
        ++count;
    }
    return count;
}

Verdict CheckCommaCount(std::u16string_view text, CheckMode) {
    std::size_t wanted = 0;
    for (const FunctionName& function : kFunctionNames) {
        if (function.arity == 1) continue;
        wanted +=
            CountOccurrences(text, function.name) * static_cast<std::size_t>(function.arity - 1);
    }
    if (CountOccurrences(text, u",") == wanted) return {};
    return {-8, StringId::WrongNumberOfCommas};
}

Verdict CheckStructure(std::u16string_view text, CheckMode) {
    if (CheckCommaPlacement(text)) return {};
    return {-8, StringId::CommaPlacement};
}

constexpr std::array kRules = {CheckEmpty,      CheckBrackets,   CheckBeginning,
                               CheckNeighbours, CheckLexemes,    CheckInsideBrackets,
                               CheckCalls,      CheckCommaCount, CheckStructure};

}  // namespace

CheckResult CheckExpression(std::u16string_view text, CheckMode mode) {
    Verdict verdict;
    for (const auto& rule : kRules) {
        verdict = rule(text, mode);
        if (verdict.code != 0) break;
    }
    return {Text(verdict.message), verdict.code};
}

}  // namespace kalvex
