// What the compiler makes of a text, compared as text: how operators are grouped, which powers are
// replaced, which operations are merged into one pass, which operand is computed first, and what a
// grid computes only once. Values alone would not show whether a rule still applies.
#include <gtest/gtest.h>

#include <string>

#include "base/encoding.h"
#include "expr/program_text.h"

namespace kalvex {
namespace {

struct Row {
    const char16_t* text;
    const char* expected;
};

/// A tree on one line: an operation and its operands in brackets.
std::string Nested(const SyntaxTree& tree, NodeIndex index) {
    SyntaxTree alone;
    alone.nodes = tree.nodes;
    alone.root = index;
    const std::string lines = TreeText(alone);
    std::string text = lines.substr(0, lines.find('\n'));
    const Node& node = tree.nodes[static_cast<std::size_t>(index)];
    for (std::size_t i = 0; i < node.operandCount; ++i)
        text += (i == 0 ? " [" : ", ") + Nested(tree, node.operands[i]);
    return node.operandCount > 0 ? text + "]" : text;
}

std::string TreeOf(const char16_t* text) {
    const auto program = CompileProgram(text, ActiveKernels());
    return Nested(program->tree, program->tree.root);
}

/// The lines of a text with "; " between them.
std::string OnOneLine(std::string text) {
    text.pop_back();
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n'))
        text.replace(at, 1, "; ");
    return text;
}

std::string ProgramOf(const char16_t* text) {
    return OnOneLine(ProgramText(CompileProgram(text, ActiveKernels())->instructions));
}

std::string GridOf(const char16_t* text, bool xIsFinite) {
    const auto program = CompileProgram(text, ActiveKernels());
    return OnOneLine(GridText(PlanGrid(program->tree, xIsFinite)));
}

TEST(Tree, PutsEachNodeOnALine) {
    EXPECT_EQ(TreeText(CompileProgram(u"J(1,x)+2*y^3", ActiveKernels())->tree),
              "+ may fail\n  J may fail\n    1\n    x\n  *\n    2\n    ^ 3\n      y\n");
}

TEST(Tree, GroupsTheRestOfARun) {
    const Row rows[] = {
        {u"x-y-1", "- [x, + [y, 1]]"},
        {u"x-y-1-2", "- [x, + [y, 3]]"},
        {u"x/2/y", "/ may fail [x, * [2, y]]"},
        {u"x^y^2", "^ may fail [x, * [y, 2]]"},
        {u"x+y+1", "+ [x, + [y, 1]]"},
        {u"x*y*2", "* [x, * [y, 2]]"},
        {u"x+y-1", "+ [x, - [y, 1]]"},
        {u"x-y+1", "+ [- [x, y], 1]"},
        {u"x/y*2", "* may fail [/ may fail [x, y], 2]"},
        {u"x*y/2", "* [x, / [y, 2]]"},
        {u"(x-y)-1", "- [- [x, y], 1]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TreeOf(row.text), row.expected) << ToUtf8(row.text);
}

TEST(Tree, FoldsConstantsThatDoNotFail) {
    const Row rows[] = {
        {u"2*3+4", "10"},
        {u"x+2*3", "+ [x, 6]"},
        {u"abs(0-2)", "2"},
        {u"2^10", "1024"},
        {u"4^0.5", "2"},
        {u"J(0,0)", "1"},
        {u"0*(0-1)", "-0"},
        {u"1/0", "/ may fail [1, 0]"},
        {u"ln(0-1)", "ln may fail [-1]"},
        {u"Li(0.5)", "Li may fail [0.5]"},
        {u"x+", "nan"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(TreeOf(row.text), row.expected) << ToUtf8(row.text);
    }
    EXPECT_TRUE(TreeOf(u"x+(0-8)^(1/3)").starts_with("+ may fail [x, ^ may fail [-8, 0.3333"));
}

TEST(Tree, ReplacesPowersByTheirExponent) {
    const Row rows[] = {
        {u"x^2", "* [x, x]"},
        {u"y^2", "* [y, y]"},
        {u"(x+1)^2", "^ 2 [+ [x, 1]]"},
        {u"x^0.5", "sqrt may fail [x]"},
        {u"x^3", "^ 3 [x]"},
        {u"x^0", "^ 0 [x]"},
        {u"x^(0-2)", "^ -2 [x]"},
        {u"x^1024", "^ 1024 [x]"},
        {u"x^1025", "^ may fail [x, 1025]"},
        {u"x^2.5", "^ may fail [x, 2.5]"},
        {u"2^x", "^ may fail [2, x]"},
        {u"x^y", "^ may fail [x, y]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TreeOf(row.text), row.expected) << ToUtf8(row.text);
}

TEST(Tree, KnowsWhatCanFail) {
    const Row rows[] = {
        {u"x/2", "/ [x, 2]"},
        {u"x/y", "/ may fail [x, y]"},
        {u"sin(ln(x))", "sin may fail [ln may fail [x]]"},
        {u"Gamma(x)", "Gamma [x]"},
        {u"Si(x)", "Si may fail [x]"},
        {u"log(2,x)", "log may fail [2, x]"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TreeOf(row.text), row.expected) << ToUtf8(row.text);
}

TEST(Program, MergesAProductIntoTheSumThatUsesIt) {
    const Row rows[] = {
        {u"x*y+x", "r0 = x * y + x; value = r0"},
        {u"x+x*y", "r0 = x * y + x; value = r0"},
        {u"x*y-x", "r0 = x * y - x; value = r0"},
        {u"x-x*y", "r0 = x - x * y; value = r0"},
        {u"x^2+y", "r0 = x * x + y; value = r0"},
        {u"2*x+1", "r0 = 2 * x + 1; value = r0"},
        // Only the last one of two products.
        {u"x*y+2*x", "r0 = x * y; r0 = 2 * x + r0; value = r0"},
        // Something else is computed between the product and the sum.
        {u"x*y+sin(x)", "r0 = x * y; r1 = sin(x); r0 = r0 + r1; value = r0"},
        {u"sin(x)*y+x", "r0 = sin(x); r0 = r0 * y + x; value = r0"},
        // There is no product.
        {u"x/y+x", "r0 = x / y; r0 = r0 + x; value = r0"},
        {u"(x+y)*x", "r0 = x + y; r0 = r0 * x; value = r0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ProgramOf(row.text), row.expected) << ToUtf8(row.text);
}

TEST(Program, MergesANumberAddedToAMergedProduct) {
    const Row rows[] = {
        {u"(x*y+x)+5", "r0 = (x * y + x) + 5; value = r0"},
        {u"5+(x*y+x)", "r0 = (x * y + x) + 5; value = r0"},
        {u"(x*y+x)-5", "r0 = (x * y + x) + -5; value = r0"},
        {u"(x*y-x)+5", "r0 = (x * y - x) + 5; value = r0"},
        {u"(x-x*y)-5", "r0 = (x - x * y) + -5; value = r0"},
        // The number stands on the left of a difference, or what is added is no number.
        {u"5-(x*y+x)", "r0 = x * y + x; r0 = 5 - r0; value = r0"},
        {u"(x*y+x)+y", "r0 = x * y + x; r0 = r0 + y; value = r0"},
        // Only one number.
        {u"((x*y+x)+5)+sin(x)", "r0 = (x * y + x) + 5; r1 = sin(x); r0 = r0 + r1; value = r0"},
        {u"((x*y+x)+5)+6", "r0 = (x * y + x) + 5; r0 = r0 + 6; value = r0"},
        // There is no product in the sum.
        {u"(x+y)+5", "r0 = x + y; r0 = r0 + 5; value = r0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ProgramOf(row.text), row.expected) << ToUtf8(row.text);
}

TEST(Program, MergesAPowerIntoATerm) {
    const Row rows[] = {
        {u"2*x^3+x", "r0 = 2 * x ^ 3 + x; value = r0"},
        {u"x^3*2+x", "r0 = 2 * x ^ 3 + x; value = r0"},
        {u"x+2*x^3", "r0 = 2 * x ^ 3 + x; value = r0"},
        {u"x-2*x^3", "r0 = -2 * x ^ 3 + x; value = r0"},
        {u"x^3+x", "r0 = 1 * x ^ 3 + x; value = r0"},
        {u"x+x^20", "r0 = 1 * x ^ 20 + x; value = r0"},
        {u"sin(x)^3+x", "r0 = sin(x); r0 = 1 * r0 ^ 3 + x; value = r0"},
        {u"2*x^4+3*x^3", "r0 = x ^ 4; r0 = 2 * r0; r0 = 3 * x ^ 3 + r0; value = r0"},
        {u"x^3+x^3", "r0 = x ^ 3; r0 = 1 * x ^ 3 + r0; value = r0"},
        {u"sin(x)+x^3", "r0 = sin(x); r0 = 1 * x ^ 3 + r0; value = r0"},
        // The exponent is not compiled in.
        {u"2*x^21+x", "r0 = x ^ 21; r0 = 2 * r0 + x; value = r0"},
        {u"2*(x+1)^2+x", "r0 = x + 1; r0 = r0 ^ 2; r0 = 2 * r0 + x; value = r0"},
        {u"x^(0-3)+x", "r0 = x ^ -3; r0 = r0 + x; value = r0"},
        // Base or rest is no array, or the factor is no number.
        {u"2*x^3+1", "r0 = x ^ 3; r0 = 2 * r0 + 1; value = r0"},
        {u"x^3+y", "r0 = x ^ 3; r0 = r0 + y; value = r0"},
        {u"y^3+x", "r0 = y ^ 3; r0 = r0 + x; value = r0"},
        {u"y*x^3+x", "r0 = x ^ 3; r0 = y * r0 + x; value = r0"},
        // The rest is subtracted, not the power.
        {u"2*x^3-x", "r0 = x ^ 3; r0 = 2 * r0 - x; value = r0"},
        {u"x^3-x", "r0 = x ^ 3; r0 = r0 - x; value = r0"},
        {u"x-x^3", "r0 = x ^ 3; r0 = x - r0; value = r0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ProgramOf(row.text), row.expected) << ToUtf8(row.text);
}

// The operand that needs more registers comes first, unless its left neighbour can fail: the error
// code is that of the first failing operation in written order.
TEST(Program, ComputesTheHungrierOperandFirst) {
    const Row rows[] = {
        {u"sin(x)/(cos(x)+tg(x))",
         "r0 = cos(x); r1 = tg(x); r0 = r0 + r1; r1 = sin(x); r0 = r1 / r0; value = r0"},
        {u"ln(x)/(cos(x)+tg(x))",
         "r0 = ln(x); r1 = cos(x); r2 = tg(x); r1 = r1 + r2; r0 = r0 / r1; value = r0"},
        {u"(cos(x)+tg(x))/sin(x)",
         "r0 = cos(x); r1 = tg(x); r0 = r0 + r1; r1 = sin(x); r0 = r0 / r1; value = r0"},
        {u"x", "value = x"},
        {u"2", "value = 2"},
        {u"y", "value = y"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ProgramOf(row.text), row.expected) << ToUtf8(row.text);
    }
}

TEST(Program, IsNotANumberWhereItNeedsTooManyRegisters) {
    const auto textOfDepth = [](int depth) {
        std::u16string text = u"ln(x)";
        for (int i = 1; i < depth; ++i)
            text = u"ln(x)*(" + text + u")";
        return text;
    };
    const auto deepest = CompileProgram(textOfDepth(kMostRegisters), ActiveKernels());
    EXPECT_EQ(deepest->instructions.registerCount, kMostRegisters);
    EXPECT_EQ(ProgramOf(textOfDepth(kMostRegisters + 1).c_str()), "value = nan");
}

TEST(GridPlan, ComputesOnceWhatOneVariableDecides) {
    const Row rows[] = {
        {u"sin(x)+cos(y)", "r0 = sin(x); X1 = r0; r0 = cos(y); Y1 = r0; r0 = X1 + Y1; value = r0"},
        {u"x*y", "r0 = x * y; value = r0"},
        {u"sin(x*y)+x^2",
         "r0 = x * x; X1 = r0; r0 = x * y; r0 = sin(r0); r0 = r0 + X1; value = r0"},
        // In the parts y is an array, so that its powers merge as those of x do.
        {u"x+(2*y^3+y)", "r0 = 2 * y ^ 3 + y; Y1 = r0; r0 = x + Y1; value = r0"},
        // The largest sub-tree of one variable is the part, nothing inside it.
        {u"sin(cos(x)+1)*y",
         "r0 = cos(x); r0 = r0 + 1; r0 = sin(r0); X1 = r0; r0 = X1 * y; value = r0"},
        // An operation on numbers that fails counts as a part of y.
        {u"x*y+1/0", "r0 = 1 / 0; Y1 = r0; r0 = x * y + Y1; value = r0"},
        {u"sin(x)", "r0 = sin(x); X1 = r0; value = X1"},
        {u"sin(y)", "r0 = sin(y); Y1 = r0; value = Y1"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(GridOf(row.text, true), row.expected) << ToUtf8(row.text);
}

TEST(GridPlan, LeavesOutTheZeroTermOfTwoVariables) {
    EXPECT_EQ(GridOf(u"x*0+x*y", true), "r0 = x * y; value = r0");
    EXPECT_EQ(GridOf(u"x*0+x*y", false), "r0 = x * 0; X1 = r0; r0 = x * y + X1; value = r0");
    EXPECT_EQ(GridOf(u"x*1+x*y", true), "r0 = x * 1; X1 = r0; r0 = x * y + X1; value = r0");
    EXPECT_EQ(GridOf(u"y*0+x*y", true), "r0 = y * 0; Y1 = r0; r0 = x * y + Y1; value = r0");
    EXPECT_EQ(GridOf(u"x*0-x*y", true), "r0 = x * 0; X1 = r0; r0 = X1 - x * y; value = r0");
}

}  // namespace
}  // namespace kalvex
