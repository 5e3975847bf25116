#include "cli/number_argument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kalvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ParseNumber, WantsTheWholeText) {
    struct {
        std::string_view text;
        std::optional<double> number;
    } const rows[] = {
        {"1", 1.0},
        {"-1.5", -1.5},
        {".5", 0.5},
        {"1e300", 1e300},
        {"1e-300", 1e-300},
        {"inf", kInfinity},
        {"-inf", -kInfinity},
        {"1e999", kInfinity},
        {"", std::nullopt},
        {"1,5", std::nullopt},
        {"1 ", std::nullopt},
        {"x", std::nullopt},
        {"0x10", std::nullopt},
        {"infinity", std::nullopt},
        {"--1", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ParseNumber(row.text), row.number) << row.text;
    EXPECT_TRUE(std::isnan(ParseNumber("nan").value()));
}

TEST(ParseNumbers, WantsExactlySoMany) {
    EXPECT_EQ(ParseNumbers("-10,10,-1e1,inf", 4), (std::vector<double>{-10, 10, -10, kInfinity}));
    for (const std::string_view text : {"", "1,2,3", "1,2,3,4,5", "1,2,3,", ",,,", "1,2,3,x"})
        EXPECT_EQ(ParseNumbers(text, 4), std::nullopt) << text;
}

TEST(ParseWhole, KeepsToItsRange) {
    struct {
        std::string_view text;
        std::optional<std::int64_t> number;
    } const rows[] = {
        {"1", 1},
        {"9", 9},
        {"+4", 4},
        {"0", std::nullopt},
        {"10", std::nullopt},
        {"-1", std::nullopt},
        {"1.0", std::nullopt},
        {"1e0", std::nullopt},
        {"", std::nullopt},
        {"+", std::nullopt},
        {"99999999999999999999999", std::nullopt},
        {" 5", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ParseWhole(row.text, 1, 9), row.number) << row.text;
}

TEST(Split, GivesOnePartMoreThanSeparators) {
    EXPECT_EQ(Split("", ','), (std::vector<std::string_view>{""}));
    EXPECT_EQ(Split("a,,b,", ','), (std::vector<std::string_view>{"a", "", "b", ""}));
}

}  // namespace
}  // namespace kalvex
