#include "commands/calculator.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/encoding.h"
#include "workspace/shown_boxes.h"

namespace kalvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// KEEP: whole numbers beyond 32 bits, 1e30 included, are shown as the nearest 32-bit integer.
TEST(ResultText, IsWholeOrHasSixDecimals) {
    const struct {
        double value;
        std::string_view text;
    } rows[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {4.0, "4"},
        {-4.0, "-4"},
        {0.5, "0.500000"},
        {-0.5, "-0.500000"},
        {1.0 / 3.0, "0.333333"},
        {2.0 / 3.0, "0.666667"},
        {0.1 + 0.2, "0.300000"},
        {1e-9, "0.000000"},
        {-1e-9, "-0.000000"},
        {-1e-17, "-0.000000"},
        {4.9e-324, "0.000000"},
        {0.9999999, "1.000000"},
        {123456789.25, "123456789.250000"},
        {2147483647.0, "2147483647"},
        {2147483648.0, "2147483647"},
        {2147483647.5, "2147483647.500000"},
        {-2147483648.0, "-2147483648"},
        {-2147483649.0, "-2147483648"},
        {9007199254740992.0, "2147483647"},
        {1e30, "2147483647"},
        {-1e30, "-2147483648"},
        {1.7976931348623157e308, "2147483647"},
        {kInfinity, "inf"},
        {-kInfinity, "-inf"},
        {kNan, "nan"},
        {-kNan, "nan"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ToUtf8(ResultText(row.value)), row.text) << row.value;
}

TEST(ResultDetail, HasEveryDigitOrTheReason) {
    const struct {
        EvaluationResult result;
        std::string_view text;
    } rows[] = {
        {{-0.0, 0}, "0"},
        {{4.0, 0}, "4"},
        {{0.1 + 0.2, 0}, "0.30000000000000004"},
        {{1.0 / 3.0, 0}, "0.3333333333333333"},
        {{2147483648.0, 0}, "2147483648"},
        {{-1e-9, 0}, "-1e-09"},
        {{1e30, 0}, "1e+30"},
        {{kInfinity, 0}, "inf"},
        {{-kNan, 0}, "nan"},
        {{1e30, 1}, "Devide error\nDivision by 0 not allowed"},
        {{1e30, 3}, "ln error\nThe logarithm of a negative argument is not specified"},
        {{1e30, 10}, "Ei error\nThe function Ei is defined only on nonnegative numbers"},
    };
    for (const auto& row : rows) {
        ShownBoxes shown;
        EXPECT_EQ(ToUtf8(ResultDetail(row.result, shown.show)), row.text) << row.result.error;
        EXPECT_TRUE(shown.boxes->empty()) << row.result.error;
    }
}

TEST(ResultDetail, ShowsABoxForAnUnknownCode) {
    ShownBoxes shown;
    EXPECT_EQ(ToUtf8(ResultDetail({1e30, 999}, shown.show)), "Unknown error");
    ASSERT_EQ(shown.boxes->size(), 1U);
    EXPECT_EQ(ToUtf8(shown.boxes->front().caption), "батарея 999");
    EXPECT_EQ(ToUtf8(shown.boxes->front().text), "RegOpenKeyEx");
}

TEST(Calculate, AcceptsWhatAFunctionLineMayHold) {
    const struct {
        std::u16string_view typed;
        std::string_view text;
        std::string_view detail;
    } rows[] = {
        {u"2+2", "4", "4"},
        {u"1/3", "0.333333", "0.3333333333333333"},
        {u"-2^2", "-4", "-4"},
        {u"2-3-4", "-5", "-5"},
        {u"2^3^2", "64", "64"},
        {u"x", "0", "0"},
        {u"x+7", "7", "7"},
        {u"2x+1", "1", "1"},
        {u"cos(x)", "1", "1"},
        {u"3(2+5)", "21", "21"},
        {u"Beta(2,3)", "0.083333", "0.08333333333333333"},
        {u"10^10", "2147483647", "10000000000"},
        {u"0-10^10", "-2147483648", "-10000000000"},
        {u"int(-1.5)", "-2", "-2"},
        {u"exp(1000)", "inf", "inf"},
        {u"0-exp(1000)", "-inf", "-inf"},
        {u"exp(1000)-exp(1000)", "nan", "nan"},
        {u"1/0", "2147483647", "Devide error\nDivision by 0 not allowed"},
        {u"1/x", "2147483647", "Devide error\nDivision by 0 not allowed"},
        {u"ln(-1)", "2147483647",
         "ln error\nThe logarithm of a negative argument is not specified"},
        {u"10^30", "2147483647", "1e+30"},
        {u"x+ 5", "5", "5"},
        {u"-x", "0", "0"},
    };
    for (const auto& row : rows) {
        ShownBoxes shown;
        const CalculatorAnswer answer = Calculate(row.typed, shown.show);
        EXPECT_TRUE(answer.accepted) << ToUtf8(row.typed);
        EXPECT_EQ(ToUtf8(answer.text), row.text) << ToUtf8(row.typed);
        EXPECT_EQ(ToUtf8(answer.detail), row.detail) << ToUtf8(row.typed);
        EXPECT_TRUE(shown.boxes->empty()) << ToUtf8(row.typed);
    }
}

TEST(Calculate, RejectsWithTheMessageOfTheCheck) {
    const struct {
        std::u16string_view typed;
        std::string_view text;
    } rows[] = {
        {u"", "Error Empty string"},
        {u"Enter expression here", "Error There is an unknown lexeme"},
        {u"2+2 ", "Error There is an unknown lexeme"},
        {u"y", "Error There is an unknown lexeme"},
        {u"2,5", "Error Wrong number of commas"},
        {u"1.5e3", "Error There is an unknown lexeme"},
        {u"inf", "Error There is an unknown lexeme"},
        {u"(x", "Error Various number of opening and closing brackets"},
        {u"x)", "Error Too many closing brackets"},
        {u"*2", "Error Expression can not begin with the characters: *,/,^)"},
        {u"2+*3", "Error Next two characters"},
        {u"(2+)", "Error Before the closing bracket may be a sign"},
        {u"%d%s", "Error There is an unknown lexeme"},
    };
    for (const auto& row : rows) {
        ShownBoxes shown;
        const CalculatorAnswer answer = Calculate(row.typed, shown.show);
        EXPECT_FALSE(answer.accepted) << ToUtf8(row.typed);
        EXPECT_EQ(ToUtf8(answer.text), row.text) << ToUtf8(row.typed);
        EXPECT_EQ(answer.detail, u"");
        EXPECT_TRUE(shown.boxes->empty()) << ToUtf8(row.typed);
    }
}

TEST(Calculate, PassesTheBoxOfTheNormaliserOn) {
    ShownBoxes shown;
    EXPECT_EQ(Calculate(u"(2+1)(3-1)", shown.show).text, u"6");
    ASSERT_EQ(shown.boxes->size(), 1u);
    EXPECT_EQ(shown.boxes->front().caption, u"Test");
    EXPECT_EQ(shown.boxes->front().text, u"(2+1)*(3-1)");
}

TEST(Calculate, BoundsEndlessTexts) {
    std::u16string sum = u"1";
    for (int i = 1; i < 128; ++i)
        sum += u"+1";
    EXPECT_EQ(Calculate(sum, {}).text, u"128");  // 255 tokens
    EXPECT_EQ(Calculate(sum + u"+1", {}).text, u"Error Check the placement of commas");
    while (sum.size() < 1'000'000)
        sum += sum.substr(1);
    EXPECT_FALSE(Calculate(sum, {}).accepted);
    EXPECT_FALSE(Calculate(std::u16string(1'000'000, u'('), {}).accepted);
    EXPECT_EQ(Calculate(std::u16string(400, u'9'), {}).text, u"inf");
}

}  // namespace
}  // namespace kalvex
