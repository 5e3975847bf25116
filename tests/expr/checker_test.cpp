#include "expr/checker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "expr/names.h"
#include "expr/shape_tokens.h"
#include "numbers/decimal.h"
#include "random_text.h"

namespace kalvex {
namespace {

constexpr std::u16string_view kEmpty = u"Empty string";
constexpr std::u16string_view kClosing = u"Too many closing brackets";
constexpr std::u16string_view kUneven = u"Various number of opening and closing brackets";
constexpr std::u16string_view kBegin = u"Expression can not begin with the characters: *,/,^)";
constexpr std::u16string_view kNext = u"Next two characters";
constexpr std::u16string_view kLexeme = u"There is an unknown lexeme";
constexpr std::u16string_view kBefore = u"Before the closing bracket may be a sign";
constexpr std::u16string_view kAfter =
    u"After opening the brackets can not be a sign or closing bracket";
constexpr std::u16string_view kNames = u"After the names of the functions should be '('";
constexpr std::u16string_view kCommas = u"Wrong number of commas";
constexpr std::u16string_view kPlacement = u"Check the placement of commas";
constexpr std::u16string_view kGood = u"Sucsses!";

struct Row {
    std::u16string_view text;
    std::int32_t code;
    std::u16string_view message;
};

constexpr Row kOneVariable[] = {
    {u"", -11, kEmpty},
    {u")x(", -1, kClosing},
    {u"(x", -2, kUneven},
    {u"*x", -3, kBegin},
    {u"/x", -3, kBegin},
    {u"^x", -3, kBegin},
    {u",x", -3, kBegin},
    {u"x+*2", -5, kNext},
    {u"0+*x", -5, kNext},
    {u"x,,x", -5, kNext},
    {u"x+", 0, kGood},  // lenient: an operand in front is enough
    {u"+", 0, kGood},   // a single token passes
    {u"+*", -8, kPlacement},
    {u"+*x", -8, kPlacement},  // the first two characters are never compared
    {u"sin x", -6, kLexeme},
    {u"sinx", -6, kLexeme},
    {u"y+1", -6, kLexeme},
    {u"X", -6, kLexeme},
    {u"Sin(x)", -6, kLexeme},
    {u"pi", -6, kLexeme},
    {u"2x", -6, kLexeme},
    {u"x2", -6, kLexeme},
    {u"1.5*e3", -6, kLexeme},
    {u"1e-5", -6, kLexeme},
    {u"1e5", 0, kGood},
    {u"1e", -6, kLexeme},
    {u"inf", -6, kLexeme},
    {u"0x10", -6, kLexeme},
    {u" ", -6, kLexeme},
    {u"x+ 5", 0, kGood},
    {u"x+\t5", 0, kGood},
    {u"x+5 ", -6, kLexeme},
    {u"2.5", 0, kGood},
    {u"1.2.3", 0, kGood},
    {u"x.5", 0, kGood},
    {u".", -8, kPlacement},
    {u"(x+)", -6, kBefore},
    {u"(*x)", -6, kAfter},
    {u"(*x+)", -6, kAfter},
    {u"(x+)*(-x)", -6, kBefore},
    {u"(a+)", -6, kLexeme},  // lexemes come before the places beside brackets
    {u"(*a)", -6, kLexeme},
    {u"sin+x", -7, kNames},
    {u"sin", -7, kNames},
    {u"(sin)", -7, kNames},
    {u"Beta(x)", -8, kCommas},
    {u"x,x", -8, kCommas},
    {u"Beta(x,1)", 0, kGood},
    {u"Hyper(1,2,3,x)", 0, kGood},
    {u"Cheb(1,2)", -8, kCommas},
    {u"Cheb(1,2,x)", 0, kGood},
    {u"()", -8, kPlacement},
    {u"sin()", -8, kPlacement},
    {u"sin(x,1)*J(x)", -8, kPlacement},
    {u"1,J(x)", 0, kGood},  // an operand in front, and the number of commas is right
    {u"sin(x)", 0, kGood},
    {u"x", 0, kGood},
    {u"0-x^2", 0, kGood},
    {u"log(2,Beta(x,1))", 0, kGood},
};

TEST(Checker, OneVariable) {
    for (const Row& row : kOneVariable) {
        const CheckResult result = CheckExpression(row.text, CheckMode::OneVariable);
        EXPECT_EQ(result.code, row.code) << ToUtf8(row.text);
        EXPECT_EQ(ToUtf8(result.message), ToUtf8(row.message)) << ToUtf8(row.text);
    }
}

TEST(Checker, TwoVariables) {
    constexpr Row kRows[] = {
        {u"y+1", 0, kGood},    {u"x*0+x^2+y^2-1", 0, kGood}, {u"xy", -6, kLexeme},
        {u"Y+1", -7, kNames},  {u"x,y", -8, kCommas},        {u"z", -6, kLexeme},
        {u"J(y,x)", 0, kGood},
    };
    for (const Row& row : kRows) {
        const CheckResult result = CheckExpression(row.text, CheckMode::TwoVariables);
        EXPECT_EQ(result.code, row.code) << ToUtf8(row.text);
        EXPECT_EQ(ToUtf8(result.message), ToUtf8(row.message)) << ToUtf8(row.text);
    }
}

TEST(Checker, AcceptsEveryFunction) {
    for (const FunctionName& function : kFunctionNames) {
        std::u16string text(function.name);
        text += u"(x";
        for (int i = 1; i < function.arity; ++i)
            text += u",1";
        text += u')';
        EXPECT_EQ(CheckExpression(text, CheckMode::OneVariable).code, 0) << ToUtf8(text);
    }
}

TEST(Checker, HoldsTwoHundredAndFiftyFiveTokens) {
    std::u16string text = u"x";
    for (int i = 0; i < 127; ++i)
        text += u"+x";
    EXPECT_EQ(CheckExpression(text, CheckMode::OneVariable).code, 0);
    const CheckResult tooLong = CheckExpression(text + u"+", CheckMode::OneVariable);
    EXPECT_EQ(tooLong.code, -8);
    EXPECT_EQ(tooLong.message, kPlacement);
}

TEST(Checker, TakesTextsOfAnyLength) {
    for (const std::u16string_view piece :
         {u"x+", u"(", u"sin(", u"1", u" ", u".", u"I", u"x,", u"ch", u"+(", u"\u0451"}) {
        std::u16string text = u"x";
        while (text.size() < 1000000)
            text += piece;
        EXPECT_LT(CheckExpression(text, CheckMode::OneVariable).code, piece == u"1" ? 1 : 0)
            << ToUtf8(piece);
    }
    EXPECT_EQ(CheckExpression(std::u16string(1000000, u'7'), CheckMode::OneVariable).code, 0);
}

// A second, independent implementation of the rules: slow, but each rule as directly as possible.
constexpr std::u16string_view kSigns = u"+-/*^,";

bool Among(char16_t c, std::u16string_view set) {
    return std::ranges::count(set, c) > 0;
}

bool SlowKnown(const std::u16string& lexeme, CheckMode mode) {
    if (lexeme == u"x" || (lexeme == u"y" && mode == CheckMode::TwoVariables)) return true;
    for (const FunctionName& f : kFunctionNames)
        if (lexeme == f.name) return true;
    return IsWholeDecimal(lexeme);
}

std::int32_t SlowLexemes(std::u16string text, CheckMode mode) {
    text += u'+';
    std::u16string lexeme;
    for (const char16_t c : text) {
        if (!Among(c, u"*^()+-/.,")) {
            lexeme += c;
        } else if (!lexeme.empty()) {
            if (!SlowKnown(lexeme, mode)) return -6;
            lexeme.clear();
        }
    }
    return 0;
}

bool StandsAt(const std::u16string& text, std::size_t at, std::u16string_view name) {
    return text.substr(at, name.size()) == name;
}

std::int32_t SlowNames(const std::u16string& text) {
    std::size_t wanted = 0;
    for (const FunctionName& f : kFunctionNames) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (!StandsAt(text, i, f.name)) continue;
            if (!StandsAt(text, i + f.name.size(), u"(")) return -7;
        }
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        for (const FunctionName& f : kFunctionNames)
            if (StandsAt(text, i, f.name)) wanted += static_cast<std::size_t>(f.arity - 1);
    }
    const auto commas = static_cast<std::size_t>(std::ranges::count(text, u','));
    return commas == wanted ? 0 : -8;
}

std::int32_t SlowCheck(const std::u16string& text, CheckMode mode) {
    if (text.empty()) return -11;
    long depth = 0;
    for (const char16_t c : text) {
        depth += c == u'(' ? 1 : c == u')' ? -1 : 0;
        if (depth < 0) return -1;
    }
    if (depth != 0) return -2;
    if (Among(text[0], u"*/^,")) return -3;
    for (std::size_t i = 2; i < text.size(); ++i)
        if (Among(text[i - 1], kSigns) && Among(text[i], kSigns)) return -5;
    if (SlowLexemes(text, mode) != 0) return -6;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == u')' && Among(text[i - 1], kSigns)) return -6;
        if (text[i - 1] == u'(' && Among(text[i], kSigns)) return -6;
    }
    const std::int32_t names = SlowNames(text);
    if (names != 0) return names;
    return CheckCommaPlacement(text) ? 0 : -8;
}

TEST(Checker, AgreesWithThePlainRules) {
    std::mt19937 random(2);
    int accepted = 0;
    for (int i = 0; i < 60000; ++i) {
        const std::u16string text = test::RandomText(random, 9);
        for (const CheckMode mode : {CheckMode::OneVariable, CheckMode::TwoVariables}) {
            const std::int32_t code = CheckExpression(text, mode).code;
            ASSERT_EQ(code, SlowCheck(text, mode)) << ToUtf8(text);
            accepted += code == 0;
        }
    }
    EXPECT_GT(accepted, 1000);
}

}  // namespace
}  // namespace kalvex
