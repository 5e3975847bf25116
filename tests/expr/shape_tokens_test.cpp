#include "expr/shape_tokens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "expr/names.h"
#include "random_text.h"

namespace kalvex {
namespace {

std::vector<int> CodesOf(std::u16string_view text) {
    const auto tokens = TokenizeShape(text);
    if (!tokens) return {-1};
    std::vector<int> codes;
    for (const ShapeToken token : *tokens)
        codes.push_back(static_cast<int>(token));
    return codes;
}

TEST(ShapeTokens, CutsTexts) {
    const struct {
        std::u16string_view text;
        std::vector<int> codes;
    } rows[] = {
        {u"", {}},
        {u"x+y", {0, 100, 0}},
        {u"-/*^", {100, 100, 100, 100}},
        {u"(1.5,2)", {102, 0, 101, 0, 103}},
        {u"1e-5", {0}},
        {u" 5", {0}},
        {u"1.2.3", {0, 0}},
        {u"xx", {0, 0}},
        {u"sin(x)", {1, 0, 103}},
        {u"asin(x)", {1, 0, 103}},
        {u"J(1,x)", {2, 0, 101, 0, 103}},
        {u"Cheb(", {3}},
        {u"Hyper(", {4}},
        {u"sin", {-1}},
        {u"sin x", {-1}},
        {u"z", {-1}},
        {u" ", {-1}},
        {u".", {-1}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CodesOf(row.text), row.codes) << ToUtf8(row.text);
    for (const FunctionName& f : kFunctionNames) {
        const std::u16string text = std::u16string(f.name) + u"(";
        EXPECT_EQ(CodesOf(text), std::vector<int>{f.arity}) << ToUtf8(text);
    }
}

TEST(ShapeTokens, StopsAtTheCapacity) {
    EXPECT_EQ(CodesOf(std::u16string(255, u'x')).size(), 255U);
    EXPECT_EQ(CodesOf(std::u16string(256, u'x')), std::vector<int>{-1});
}

TEST(ShapeTokens, JudgesShapes) {
    const struct {
        std::u16string_view text;
        bool good;
    } rows[] = {
        {u"x", true},
        {u"(x)", true},
        {u"((x+1)*2)^3", true},
        {u"sin(cos(x))", true},
        {u"J(x,x+1)", true},
        {u"Cheb(1,2,x)", true},
        {u"x,y", true},  // the rest behind an operand is not looked at
        {u"x)", true},
        {u"+", true},
        {u"", false},
        {u"()", false},
        {u"(x,x)", false},
        {u"sin(x,x)", false},
        {u"J(x)", false},
        {u"Hyper(1,2,3,x)", true},
        {u"Hyper(1,2,x)", false},
        {u"+x", false},
        {u"(x)(x)", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CheckCommaPlacement(row.text), row.good) << ToUtf8(row.text);
}

// A second implementation of the reduction: it marks consumed tokens as deleted, closes the gaps
// and starts again at the first token.
constexpr int kEnd = -99;
constexpr int kDeleted = -100;

int LengthOf(const std::array<int, 300>& s) {
    int n = 0;
    while (s[static_cast<std::size_t>(n)] != kEnd)
        ++n;
    return n;
}

bool Is(const std::array<int, 300>& s, int at, const std::vector<int>& pattern) {
    for (std::size_t k = 0; k < pattern.size(); ++k)
        if (s[static_cast<std::size_t>(at) + k] != pattern[k]) return false;
    return true;
}

void SlowReduce(std::array<int, 300>& s) {
    const std::vector<std::vector<int>> patterns = {{0, 100, 0},
                                                    {102, 0, 103},
                                                    {1, 0, 103},
                                                    {2, 0, 101, 0, 103},
                                                    {3, 0, 101, 0, 101, 0, 103},
                                                    {4, 0, 101, 0, 101, 0, 101, 0, 103}};
    for (int i = 0; i < LengthOf(s); ++i) {
        for (const auto& pattern : patterns) {
            const int size = static_cast<int>(pattern.size());
            if (LengthOf(s) <= i + size - 1 || !Is(s, i, pattern)) continue;
            s[static_cast<std::size_t>(i)] = 0;
            for (int k = 1; k < size; ++k)
                s[static_cast<std::size_t>(i + k)] = kDeleted;
            std::fill(std::remove(s.begin(), s.end(), kDeleted), s.end(), kEnd);
            i = -1;
            break;
        }
    }
}

TEST(ShapeTokens, ReducesAsTheLiteralScan) {
    std::mt19937 random(3);
    constexpr std::array kKinds = {0, 0, 0, 0, 1, 2, 3, 4, 100, 100, 101, 101, 102, 103, 103, 103};
    std::uniform_int_distribution<std::size_t> kind(0, kKinds.size() - 1);
    std::uniform_int_distribution<int> length(0, 40);
    for (int i = 0; i < 40000; ++i) {
        std::array<int, 300> slow{};
        slow.fill(kEnd);
        std::vector<ShapeToken> tokens;
        for (int left = length(random); left > 0; --left) {
            slow[tokens.size()] = kKinds[kind(random)];
            tokens.push_back(static_cast<ShapeToken>(slow[tokens.size()]));
        }
        SlowReduce(slow);
        ReduceShape(tokens);
        ASSERT_EQ(tokens.size(), static_cast<std::size_t>(LengthOf(slow)));
        for (std::size_t k = 0; k < tokens.size(); ++k)
            ASSERT_EQ(static_cast<int>(tokens[k]), slow[k]);
    }
}

TEST(ShapeLength, CountsTokensUpToOneMoreThanTheCapacity) {
    const struct {
        std::u16string text;
        std::size_t length;
    } rows[] = {
        {u"", 0},
        {u"x", 1},
        {u"12.5+sin(x)", 5},
        {u"x+q+x", 2},  // a word that is no token ends the count
        {std::u16string(255, u'x'), 255},
        {std::u16string(256, u'x'), 256},
        {std::u16string(1000000, u'('), 256},
        {std::u16string(1000000, u'1'), 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ShapeLength(row.text), row.length) << ToUtf8(row.text.substr(0, 20));
}

}  // namespace
}  // namespace kalvex
