#include "analysis/report.h"

#include <gtest/gtest.h>

#include "analysis/analysis_fixtures.h"
#include "base/encoding.h"

namespace kalvex {
namespace {

AnalysisResult SomeResult() {
    AnalysisResult result;
    result.a = -10.0;
    result.b = 10.0;
    result.roots = {-3.25, 1e-7};
    result.rootCount = 2;
    result.maximums = {fixtures::At(1.5, 2.25)};
    result.maximumCount = 1;
    result.minimums = {fixtures::At(-1.5, -2.25), fixtures::At(4, -0.0)};
    result.minimumCount = 2;
    result.greatestY = 123456.789;
    result.leastY = -2.25;
    result.meanValue = 0.5;
    result.integral = 12.0000004;
    return result;
}

constexpr std::u16string_view kPagesSummary =
    u"On the interval (-10.000000,10.000000)\r\n"
    u"sin(x) has:\r\n"
    u"  2 roots (See 'Roots Tab')\r\n"
    u"  1 maximums (See 'Maximums Tab')\r\n"
    u"  2 minimums  (See 'Minimums Tab')\r\n"
    u"\r\n"
    u"sin(x) reaches a maximum:\r\n"
    u"  y=123456.789000\r\n"
    u"sin(x) reaches a maximum:\r\n"
    u"  y=-2.250000\r\n"
    u"\r\n"
    u"Mean value of function: 0.500000";

TEST(ReportPages, HasFourPages) {
    const auto pages = ReportPages(SomeResult(), u"sin(x)");
    const struct {
        std::u16string title;
        std::u16string text;
    } rows[] = {
        {u"General", std::u16string(kPagesSummary) +
                         u"\r\nThe integral of a function sin(x)\r\n"
                         u"in the range of -10.000000 to 10.000000 is 12.000000"},
        {u"Roots",
         u"The roots of sin(x)\r\non the interval (-10.000000,10.000000):\r\n"
         u"x=-3.250000\r\nx=0.000000\r\n"},
        {u"Maximums",
         u"The maximums of sin(x)\r\non the interval (-10.000000,10.000000):\r\n"
         u"x=1.500000  y=2.250000\r\n"},
        {u"Minimums",
         u"The minimums of sin(x)\r\non the interval (-10.000000,10.000000):\r\n"
         u"x=-1.500000  y=-2.250000\r\nx=4.000000  y=-0.000000\r\n"},
    };
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages[i].title, rows[i].title);
        EXPECT_EQ(ToUtf8(pages[i].text), ToUtf8(rows[i].text));
    }
}

TEST(ReportPages, OfACurveWithoutAnything) {
    AnalysisResult result;
    result.a = -1.0;
    result.b = 1.0;
    result.integralUndefined = true;
    result.integral = 77.0;
    const auto pages = ReportPages(result, u"ln(x)");
    EXPECT_EQ(ToUtf8(pages[0].text),
              "On the interval (-1.000000,1.000000)\r\nln(x) has:\r\n"
              "  0 roots (See 'Roots Tab')\r\n  0 maximums (See 'Maximums Tab')\r\n"
              "  0 minimums  (See 'Minimums Tab')\r\n\r\n"
              "ln(x) reaches a maximum:\r\n  y=0.000000\r\n"
              "ln(x) reaches a maximum:\r\n  y=0.000000\r\n\r\n"
              "Mean value of function: 0.000000\r\n"
              "The integral of a function ln(x)\r\n"
              "in the range of -1.000000 to 1.000000 is not defined.");
    EXPECT_EQ(ToUtf8(pages[1].text),
              "Roots of ln(x) on the interval (-1.000000,1.000000) not found.\r\n");
    EXPECT_EQ(ToUtf8(pages[2].text),
              "Maximums of ln(x) on the interval (-1.000000,1.000000) not found.\r\n");
    EXPECT_EQ(ToUtf8(pages[3].text),
              "Minimums of ln(x) on the interval (-1.000000,1.000000) not found.\r\n");
}

TEST(ReportText, IsTheReportInOne) {
    EXPECT_EQ(ToUtf8(ReportText(SomeResult(), u"sin(x)")),
              "On the interval (-10.000000,10.000000)\r\n"
              "sin(x) has:\r\n"
              "  2 roots (See below)\r\n"
              "  1 maximums (See below)\r\n"
              "  2 minimums  (See below)\r\n"
              "\r\n"
              "sin(x) reaches a maximum:\r\n"
              "  y=123456.789000\r\n"
              "sin(x) reaches a maximum:\r\n"
              "  y=-2.250000\r\n"
              "Mean value of function: 0.500000\r\n"
              "The roots of sin(x)\r\non the interval (-10.000000,10.000000):\r\n"
              "  x=-3.250000\r\n  x=0.000000\r\n"
              "The maximums of sin(x)\r\non the interval (-10.000000,10.000000):\r\n"
              "  x=1.500000  y=2.250000\r\n"
              "The minimums of sin(x)\r\non the interval (-10.000000,10.000000):\r\n"
              "  x=-1.500000  y=-2.250000\r\n  x=4.000000  y=-0.000000\r\n");
}

TEST(ReportText, OfACurveWithoutAnything) {
    const AnalysisResult result;
    EXPECT_EQ(ToUtf8(ReportText(result, u"5")),
              "On the interval (0.000000,0.000000)\r\n5 has:\r\n"
              "  0 roots (See below)\r\n  0 maximums (See below)\r\n  0 minimums  (See below)\r\n"
              "\r\n5 reaches a maximum:\r\n  y=0.000000\r\n5 reaches a maximum:\r\n  y=0.000000\r\n"
              "Mean value of function: 0.000000\r\n"
              "Roots of 5 on the interval (0.000000,0.000000) not found.\r\n"
              "Maximums of 5 on the interval (0.000000,0.000000) not found.\r\n"
              "Minimums of 5 on the interval (0.000000,0.000000) not found.\r\n");
}

// A name is inserted as it is, also when it contains format characters.
TEST(Report, TakesAnyName) {
    for (const std::u16string_view name : {u"", u"100%s of %d%f%%.txt", u"результат.kx"}) {
        const auto pages = ReportPages(SomeResult(), name);
        const std::u16string expected = u"The roots of " + std::u16string(name) + u"\r\non the";
        EXPECT_EQ(pages[1].text.substr(0, expected.size()), expected);
        EXPECT_NE(pages[0].text.find(u"is 12.000000"), std::u16string::npos);
    }
}

TEST(Report, ListsEveryCountedRoot) {
    const auto pages = ReportPages(fixtures::Analyse(fixtures::EntryOfValues({1, 0, 1})), u"f");
    EXPECT_EQ(ToUtf8(pages[1].text),
              "The roots of f\r\non the interval (-3.000000,7.000000):\r\n"
              "x=1.000000\r\nx=1.000000\r\n");
}

}  // namespace
}  // namespace kalvex
