#include <gtest/gtest.h>

#include "workspace/function_list.h"
#include "workspace/shown_boxes.h"

namespace kalvex {
namespace {

struct LineCase {
    std::int32_t type;
    std::uint8_t selected;
    std::u16string_view line;
    bool prepared;
    std::u16string_view text;
    std::u16string_view working;
    std::u16string_view y;
    std::u16string_view message;  ///< text of the last box; empty when there is none
};

const LineCase kLines[] = {
    {2, 0, u"", true, u"", u"", u"", u""},
    {2, 1, u"", false, u"", u"", u"", u"Error in 4 function:\n\nEmpty string"},
    {2, 0, u"2x+", true, u"2x+", u"2x+", u"", u""},
    {2, 2, u"2x+", true, u"2x+", u"2x+", u"", u""},  // only 1 means selected
    {2, 1, u"2x", true, u"2x", u"2*x", u"", u""},
    {1, 1, u"-x", true, u"-x", u"0-x", u"", u""},
    {2, 1, u"2q", false, u"2q", u"2*q", u"",
     u"Error in 4 function:\n2q\nThere is an unknown lexeme"},
    {3, 1, u"sin(x);cos(x)", true, u"sin(x);cos(x)", u"sin(x)", u"cos(x)", u""},
    {3, 1, u"2x;3x", true, u"2x;3x", u"2*x", u"3*x", u""},
    {3, 1, u"a;b;c", false, u"a;b;c", u"a", u"b;c",
     u"Error in 4 function:\na;b;c\nThere is an unknown lexeme"},
    // KEEP: Y is checked first; when it fails, X stays as typed.
    {3, 1, u"2q;", false, u"2q;", u"2q", u"", u"Error in 4 function:\n2q;\nEmpty string"},
    {3, 1, u"2x;2q", false, u"2x;2q", u"2x", u"2*q",
     u"Error in 4 function:\n2x;2q\nThere is an unknown lexeme"},
    {3, 1, u";x", false, u";x", u"", u"x", u"Error in 4 function:\n;x\nEmpty string"},
    {3, 1, u"sin(x)", false, u"sin(x)", u"sin(x)", u"",
     u"You have entered only one equation, while the parametric type requires two!"},
    {3, 1, u"", false, u"", u"", u"",
     u"You have entered only one equation, while the parametric type requires two!"},
    {3, 0, u"sin(x)", true, u"sin(x)", u"sin(x)", u"", u""},
    {5, 1, u"x^2+y^2-1", true, u"x^2+y^2-1", u"x*0+x^2+y^2-1", u"", u""},
    {5, 0, u"x^2+y^2-1", true, u"x^2+y^2-1", u"x^2+y^2-1", u"", u""},
    {2, 1, u"y", false, u"y", u"y", u"", u"Error in 4 function:\ny\nThere is an unknown lexeme"},
    {4, 1, u"\\My Documents\\data.txt", true, u"data.txt", u"\\My Documents\\data.txt", u"", u""},
    {4, 0, u"\\My Documents\\data.txt", true, u"data.txt", u"\\My Documents\\data.txt", u"", u""},
    {4, 1, u"/home/a b/data.txt", true, u"data.txt", u"/home/a b/data.txt", u"", u""},
    {4, 1, u"data.txt", true, u"data.txt", u"data.txt", u"", u""},
    {4, 1, u"folder/", true, u"", u"folder/", u"", u""},
    {4, 1, u"", true, u"", u"", u"", u""},
    {0, 1, u"2q", true, u"2q", u"2q", u"", u""},
    {77, 1, u"2q", true, u"2q", u"2q", u"", u""},
};

TEST(PrepareFunction, TreatsEachTypeItsWay) {
    for (const LineCase& row : kLines) {
        FunctionEntry entry;
        entry.type = static_cast<EquationType>(row.type);
        entry.selected = row.selected;
        ShownBoxes shown;
        const std::string line(row.line.begin(), row.line.end());
        EXPECT_EQ(PrepareFunction(entry, 3, row.line, shown.show), row.prepared) << line;
        EXPECT_EQ(entry.text, row.text) << line;
        EXPECT_EQ(entry.workingText, row.working) << line;
        EXPECT_EQ(entry.yText, row.y) << line;
        const bool compiles = row.prepared && row.selected == 1 &&
                              (row.type == 1 || row.type == 2 || row.type == 3 || row.type == 5);
        EXPECT_EQ(entry.compiled[0].program != nullptr, compiles) << line;
        if (row.message.empty()) {
            EXPECT_TRUE(shown.boxes->empty()) << line;
            continue;
        }
        ASSERT_EQ(shown.boxes->size(), 1u) << line;
        EXPECT_EQ(shown.boxes->back().text, row.message) << line;
        EXPECT_EQ(shown.boxes->back().caption, u"Error!");
        EXPECT_EQ(shown.boxes->back().icon, MessageIcon::Stop);
    }
}

TEST(PrepareFunction, CompilesBothHalves) {
    FunctionEntry entry;
    entry.type = EquationType::Parametric;
    entry.selected = 1;
    ASSERT_TRUE(PrepareFunction(entry, 0, u"2x;3x", ShownBoxes().show));
    EXPECT_EQ(EvaluateExpression(entry.compiled[0], 2), 4);
    EXPECT_EQ(EvaluateExpression(entry.compiled[1], 2), 6);
}

TEST(PrepareFunction, KeepsTheOlderFormUntilCompiledAgain) {
    FunctionEntry entry;
    entry.type = EquationType::Decart;
    entry.selected = 1;
    ASSERT_TRUE(PrepareFunction(entry, 0, u"2x", ShownBoxes().show));
    EXPECT_FALSE(PrepareFunction(entry, 0, u"3q", ShownBoxes().show));
    EXPECT_EQ(EvaluateExpression(entry.compiled[0], 2), 4);
    entry.selected = 0;
    EXPECT_TRUE(PrepareFunction(entry, 0, u"5x", ShownBoxes().show));
    EXPECT_EQ(EvaluateExpression(entry.compiled[0], 2), 4);
    entry.selected = 1;
    EXPECT_TRUE(PrepareFunction(entry, 0, u"5x", ShownBoxes().show));
    EXPECT_EQ(EvaluateExpression(entry.compiled[0], 2), 10);
}

TEST(PrepareFunction, ShowsTheTestBoxOfYBeforeThatOfX) {
    FunctionEntry entry;
    entry.type = EquationType::Parametric;
    entry.selected = 1;
    ShownBoxes shown;
    EXPECT_TRUE(PrepareFunction(entry, 0, u"(x)2;(x)3", shown.show));
    ASSERT_EQ(shown.boxes->size(), 2u);
    EXPECT_EQ(shown.boxes->at(0).text, u"(x)*3");
    EXPECT_EQ(shown.boxes->at(1).text, u"(x)*2");
}

}  // namespace
}  // namespace kalvex
