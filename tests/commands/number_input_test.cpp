#include "commands/number_input.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "numbers/decimal.h"

namespace kalvex {
namespace {

TEST(NumberForInput, LosesNothing) {
    for (const double value : {0.1, 1.0 / 3.0, -1e300, 5e-324, 9.4245, 123456789012345678.0,
                               std::numeric_limits<double>::max()}) {
        EXPECT_EQ(ParseDecimalPrefix(NumberForInput(value)).value, value);
    }
    EXPECT_EQ(NumberForInput(-10), u"-10");
    EXPECT_EQ(NumberForInput(0.1), u"0.1");
}

TEST(WholeNumber, SkipsBlanksAroundIt) {
    EXPECT_EQ(WholeNumber(u" \t2.5\u00a0 "), 2.5);
    for (const char16_t* const text : {u"", u"  ", u"2 5", u"2,5", u"x", u"0x10", u"inf"})
        EXPECT_FALSE(WholeNumber(text).has_value());
}

TEST(ReadFiniteNumbers, TakesAllOrNothing) {
    constexpr std::array<std::u16string_view, 2> kNames = {u"B1", u"B2"};
    std::array<double, 2> numbers = {7, 8};
    const std::array<std::u16string, 2> bad = {u"1", u"two"};
    const std::optional<InputProblem> problem = ReadFiniteNumbers(bad, kNames, numbers);
    ASSERT_TRUE(problem.has_value());
    EXPECT_EQ(problem->field, 1u);
    EXPECT_EQ(problem->message, u"B2 is not a number.");
    EXPECT_EQ(numbers[0], 7);
    const std::array<std::u16string, 2> good = {u"1", u"-2e-3"};
    EXPECT_FALSE(ReadFiniteNumbers(good, kNames, numbers).has_value());
    EXPECT_EQ(numbers[1], -2e-3);
}

TEST(LeadingInteger, ReadsWhatIsThere) {
    const struct {
        std::u16string_view text;
        std::int32_t number;
    } rows[] = {
        {u"5", 5},
        {u"  12 terms", 12},
        {u"+3", 3},
        {u"-4", -4},
        {u"3.7", 3},
        {u"1e3", 1},
        {u"", 0},
        {u"   ", 0},
        {u"abc", 0},
        {u"-", 0},
        {u"+-3", 0},
        {u"- 3", 0},
        {u"99999999999", 2147483647},
        {u"-99999999999", -2147483647 - 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LeadingInteger(row.text), row.number);
}

}  // namespace
}  // namespace kalvex
