#include "cli/line_argument.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(ParseLineArgument, ReadsTypeSettingsAndText) {
    struct {
        std::string_view argument;
        std::int32_t type;
        std::int32_t color;
        std::u16string_view line;
    } const rows[] = {
        {"polar:1", 1, 4, u"1"},
        {"decart:x^2", 2, 4, u"x^2"},
        {"parametric:sin(x);cos(x)", 3, 4, u"sin(x);cos(x)"},
        {"implicit:x*y-1", 5, 4, u"x*y-1"},
        {"decart,color=9:x", 2, 9, u"x"},
        {"decart,color=Great:x", 2, 9, u"x"},
        {"decart,color=Red:log(2,x)", 2, 1, u"log(2,x)"},
        {"file,color=2:/tmp/a:b.txt", 4, 2, u"/tmp/a:b.txt"},
        {"decart:", 2, 4, u""},
        {"decart:a:b=c,d", 2, 4, u"a:b=c,d"},
    };
    for (const auto& row : rows) {
        const LineArgument result = ParseLineArgument(row.argument, 4);
        EXPECT_EQ(result.error, "") << row.argument;
        EXPECT_EQ(static_cast<int>(result.entry.type), row.type) << row.argument;
        EXPECT_EQ(result.entry.color, row.color) << row.argument;
        EXPECT_EQ(result.entry.selected, 1) << row.argument;
        EXPECT_EQ(result.line, row.line) << row.argument;
    }
}

TEST(ParseLineArgument, StoresTheApproximationSettings) {
    const LineArgument result =
        ParseLineArgument("decart,approx=12,approx_val=-3,approx_val2=4,beta1=0.5,beta2=-1e3:x", 1);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.entry.method.approx, 12);
    EXPECT_EQ(result.entry.method.approx_val, -3);
    EXPECT_EQ(result.entry.method.approx_val2, 4);
    EXPECT_EQ(result.entry.method.beta1, 0.5);
    EXPECT_EQ(result.entry.method.beta2, -1000.0);
}

TEST(ParseLineArgument, SaysWhatIsWrong) {
    for (const std::string_view argument :
         {"", "x^2", ":x", "Decart:x", "File:a.txt", "decart,:x", "decart,color:x",
          "decart,color=0:x", "decart,color=10:x", "decart,color=:x", "decart,colour=1:x",
          "decart,approx=-1:x", "decart,approx_val=99999999999:x", "decart,beta1=a:x"})
        EXPECT_NE(ParseLineArgument(argument, 1).error, "") << argument;
    const std::string range = "approx=0 to " + std::to_string(kMethodCount - 1);
    const std::string beyond = "approx=" + std::to_string(kMethodCount);
    EXPECT_EQ(ParseLineArgument("file," + beyond + ":x", 1).error,
              range + " expected, got " + beyond);
}

TEST(ParseLineArgument, SaysWhatIsExpected) {
    EXPECT_EQ(ParseLineArgument("decart,color=Pink:x", 1).error,
              "color=1 to 9, Red, Orange, Violet, Green, Blue, Magenta, Cyan, Black or Great "
              "expected, got color=Pink");
    EXPECT_EQ(ParseLineArgument("decart,colour=Red:x", 1).error,
              "no such setting: colour=Red (there are color, approx, approx_val, approx_val2, "
              "beta1, beta2)");
    EXPECT_NE(LineHelp().find("approx_val2=VALUE"), std::string::npos);
}

}  // namespace
}  // namespace kalvex
