#include "numbers/decimal.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

namespace kalvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct PrefixCase {
    std::u16string_view text;
    double value;
    std::size_t length;
};

const PrefixCase kPrefixes[] = {
    {u"", 0, 0},
    {u"5", 5, 1},
    {u"5.", 5, 2},
    {u".5", 0.5, 2},
    {u".", 0, 0},
    {u"2.5x", 2.5, 3},
    {u"1.2.3", 1.2, 3},
    {u"  7", 7, 3},
    {u"\t7", 7, 2},
    {u"+7", 7, 2},
    {u"-7", -7, 2},
    {u"+-7", 0, 0},
    {u"- 7", 0, 0},
    {u"1e3", 1000, 3},
    {u"1e", 1, 1},
    {u"1e+", 1, 1},
    {u"1e-2", 0.01, 4},
    {u"1E+2", 100, 4},
    {u"inf", 0, 0},
    {u"nan", 0, 0},
    {u"0x10", 0, 1},
    {u"1e400", kInfinity, 5},
    {u"-1e400", -kInfinity, 6},
    {u"1e-400", 0, 6},
    {u"1e99999999999999999999", kInfinity, 22},
    {u"1000e9223372036854775807", kInfinity, 24},
    {u"-0.001e-9223372036854775808", -0.0, 27},
    {u"1e-99999999999999999999", 0, 23},
    {u"4.9e-324", 4.9e-324, 8},
    {u"x", 0, 0},
    {u"\u0663", 0, 0},
};

TEST(ParseDecimalPrefix, ReadsTheLongestNumber) {
    for (const PrefixCase& row : kPrefixes) {
        const DecimalPrefix prefix = ParseDecimalPrefix(row.text);
        EXPECT_EQ(prefix.length, row.length) << std::string(row.text.begin(), row.text.end());
        EXPECT_EQ(prefix.value, row.value) << std::string(row.text.begin(), row.text.end());
    }
}

TEST(ParseDecimalPrefix, TakesNumbersOfAnyLength) {
    const std::u16string large(1000, u'9');
    EXPECT_EQ(ParseDecimalPrefix(large).value, kInfinity);
    const std::u16string small = u"0." + std::u16string(1000, u'0') + u"1";
    EXPECT_EQ(ParseDecimalPrefix(small).value, 0.0);
    EXPECT_EQ(ParseDecimalPrefix(small).length, small.size());
    const std::u16string balanced = u"0." + std::u16string(400, u'0') + u"1e401";
    EXPECT_EQ(ParseDecimalPrefix(balanced).value, 1.0);
}

TEST(ParseDecimalPrefix, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(ParseDecimalPrefix(std::u16string_view(u"-0")).value));
}

TEST(IsWholeDecimal, WantsTheWholeText) {
    EXPECT_TRUE(IsWholeDecimal(u"12"));
    EXPECT_TRUE(IsWholeDecimal(u" 12"));
    EXPECT_FALSE(IsWholeDecimal(u"12 "));
    EXPECT_FALSE(IsWholeDecimal(u" "));
    EXPECT_FALSE(IsWholeDecimal(u"1e"));
    EXPECT_FALSE(IsWholeDecimal(u""));
}

TEST(FormatFixed, WritesWhatPrintfWrites) {
    EXPECT_EQ(FormatFixed(2.5), "2.500000");
    EXPECT_EQ(FormatFixed(-0.0), "-0.000000");
    EXPECT_EQ(FormatFixed(1e-7), "0.000000");
    EXPECT_EQ(FormatFixed(0.1, 17), "0.10000000000000001");
    EXPECT_EQ(FormatFixed(kInfinity), "inf");
    EXPECT_EQ(FormatFixed(1e300).size(), 301u + 7u);
    EXPECT_EQ(FormatFixed(-std::numeric_limits<double>::max(), 6).size(), 309u + 8u);
}

TEST(FormatGeneral6, WritesSixDigits) {
    EXPECT_EQ(FormatGeneral6(1.0 / 3), "0.333333");
    EXPECT_EQ(FormatGeneral6(123456.5), "123456");
    EXPECT_EQ(FormatGeneral6(1234567.0), "1.23457e+06");
    EXPECT_EQ(FormatGeneral6(-0.00001), "-1e-05");
    EXPECT_EQ(FormatGeneral6(2.0), "2");
    EXPECT_EQ(FormatGeneral6(kInfinity), "inf");
}

TEST(FormatGeneral17, WritesWhatPrintfWrites) {
    EXPECT_EQ(FormatGeneral17(0.1), "0.10000000000000001");
    EXPECT_EQ(FormatGeneral17(1e30), "1e+30");
    EXPECT_EQ(FormatGeneral17(100000.0), "100000");
    EXPECT_EQ(FormatGeneral17(-kInfinity), "-inf");
}

TEST(FormatShortest, IsShortAndNeverMinusZero) {
    EXPECT_EQ(FormatShortest(0.1), "0.1");
    EXPECT_EQ(FormatShortest(-0.0), "0");
    EXPECT_EQ(FormatShortest(-12.0), "-12");
    EXPECT_EQ(FormatShortest(123456789.0), "123456789");
    EXPECT_EQ(FormatShortest(1e300), "1e+300");
}

TEST(Decimal, IsTheSameUnderACommaLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(ParseDecimalPrefix(std::u16string_view(u"1.5")).value, 1.5);
    EXPECT_EQ(ParseDecimalPrefix(std::u16string_view(u"1,5")).length, 1u);
    EXPECT_EQ(FormatFixed(1.5), "1.500000");
    EXPECT_EQ(FormatGeneral17(1.5), "1.5");
    EXPECT_EQ(FormatShortest(1.5), "1.5");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(FormatPlain, WritesTheDecimalExactly) {
    const struct {
        std::int64_t n;
        int exponent;
        const char* plain;
        const char* scientific;
    } rows[] = {{0, 7, "0", "0"},
                {3, -1, "0.3", "3e-1"},
                {-12, 0, "-12", "-1.2e1"},
                {120, -1, "12", "1.2e1"},
                {-1200, -4, "-0.12", "-1.2e-1"},
                {12345, -2, "123.45", "1.2345e2"},
                {5, 3, "5000", "5e3"},
                {2, -13, "0.0000000000002", "2e-13"},
                {-20, 299, nullptr, "-2e300"},
                {INT64_MAX, -18, "9.223372036854775807", "9.223372036854775807e0"},
                {INT64_MIN, 0, "-9223372036854775808", "-9.223372036854775808e18"}};
    for (const auto& row : rows) {
        if (row.plain != nullptr) {
            EXPECT_EQ(FormatPlain(row.n, row.exponent), row.plain);
        }
        EXPECT_EQ(FormatScientific(row.n, row.exponent), row.scientific);
    }
    EXPECT_EQ(FormatPlain(-20, 299), "-2" + std::string(300, '0'));
}

}  // namespace
}  // namespace kalvex
