#include "commands/completion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "expr/names.h"

namespace kalvex {
namespace {

std::string Narrow(std::u16string_view text) {
    return {text.begin(), text.end()};
}

TEST(WordLength, CountsFromTheLastDelimiter) {
    const struct {
        std::u16string_view text;
        std::size_t caret;
        std::size_t length;
    } rows[] = {
        {u"", 0, 0},       {u"s", 1, 1},         {u"2*s", 3, 1},     {u"2*si", 4, 2},
        {u"2*si", 3, 1},   {u"2*si", 2, 0},      {u"2*si", 0, 0},    {u"2s", 2, 1},
        {u"xs", 2, 2},     {u"sin(c", 5, 1},     {u"sin(c", 3, 3},   {u"x+sinx)", 6, 4},
        {u"Beta(x", 6, 1}, {u"sin(x);co", 9, 2}, {u"s=a", 3, 3},     {u"x s", 3, 3},
        {u"ab", 99, 2},    {u"2*", 99, 0},       {u"\u0441s", 2, 2},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(WordLength(row.text, row.caret), row.length)
            << Narrow(row.text) << " at " << row.caret;
    }
}

TEST(WordLength, KnowsTwentyDelimitersAndNoOther) {
    constexpr std::u16string_view kDelimiters = u"().,*+-/^1234567890;";
    int delimiters = 0;
    for (char16_t c = 1; c < 0x250; ++c) {
        const std::u16string text{u'x', c, u's'};
        const bool delimits = WordLength(text, 3) == 1;
        EXPECT_EQ(delimits, kDelimiters.find(c) != std::u16string_view::npos) << int{c};
        delimiters += delimits ? 1 : 0;
    }
    EXPECT_EQ(delimiters, 20);
}

TEST(NamesBeginningWith, KeepsTheOrderOfTheTableAndTheCase) {
    using Names = std::vector<std::u16string_view>;
    const std::pair<std::u16string_view, Names> rows[] = {
        {u"s", {u"sin", u"sh"}},
        {u"S", {u"Si", u"Shi", u"Sf"}},
        {u"a", {u"acos", u"asin", u"atg", u"abs"}},
        {u"C", {u"Ci", u"Chi", u"Cf", u"Cheb"}},
        {u"c", {u"cos", u"ch"}},
        {u"l", {u"ln", u"lg", u"log"}},
        {u"L", {u"Li", u"Lag", u"Leg"}},
        {u"e", {u"exp", u"erf"}},
        {u"si", {u"sin"}},
        {u"sin", {u"sin"}},
        {u"sinx", {}},
        {u"SIN", {}},
        {u"ct", {}},
        {u"x", {}},
        {u"z", {}},
        {u"", {}},
    };
    for (const auto& [word, names] : rows)
        EXPECT_EQ(NamesBeginningWith(word), names) << Narrow(word);
}

TEST(NamesBeginningWith, FindsEveryNameByItsFirstLetter) {
    for (const FunctionName& function : kFunctionNames) {
        const auto names = NamesBeginningWith(function.name.substr(0, 1));
        EXPECT_EQ(std::count(names.begin(), names.end(), function.name), 1)
            << Narrow(function.name);
    }
}

TEST(AsksForNames, IsALetter) {
    for (const char16_t letter : std::u16string_view(u"azAZmM"))
        EXPECT_TRUE(AsksForNames(letter)) << int{letter};
    for (const char16_t other : std::u16string_view(u"@[`{0 (;_\u0441\u00e4\r\b"))
        EXPECT_FALSE(AsksForNames(other)) << int{other};
}

}  // namespace
}  // namespace kalvex
