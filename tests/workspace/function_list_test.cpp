#include "workspace/function_list.h"

#include <gtest/gtest.h>

#include <limits>

#include "resources/strings.h"

namespace kalvex {
namespace {

// KEEP: only the label of `Implicit` has no leading blank.
TEST(LabelOf, GivesTheExactLabels) {
    const std::pair<std::int32_t, std::u16string_view> rows[] = {
        {1, u" r(x)="},  {2, u" Y(x)="},  {3, u" X;Y="},
        {4, u" F="},     {5, u"G(x,y)="}, {0, u" Y(x)="},
        {-1, u" Y(x)="}, {6, u" Y(x)="},  {std::numeric_limits<std::int32_t>::min(), u" Y(x)="},
    };
    for (const auto& [type, label] : rows)
        EXPECT_EQ(LabelOf(static_cast<EquationType>(type)), label) << type;
}

// KEEP: the ninth colour is called "Great" and is a dark grey.
TEST(ColorTable, HoldsNineColours) {
    const struct {
        std::u16string_view name;
        Rgb rgb;
    } rows[] = {
        {u"Red", {255, 0, 0}},     {u"Orange", {255, 165, 0}}, {u"Violet", {138, 43, 226}},
        {u"Green", {50, 205, 50}}, {u"Blue", {0, 0, 255}},     {u"Magenta", {255, 0, 255}},
        {u"Cyan", {0, 255, 255}},  {u"Black", {0, 0, 0}},      {u"Great", {105, 105, 105}},
    };
    for (std::int32_t color = 1; color <= 9; ++color) {
        const auto& row = rows[color - 1];
        const NamedColor& named = kColorTable[static_cast<std::size_t>(color - 1)];
        EXPECT_EQ(named.name, row.name);
        EXPECT_EQ(Text(named.word), row.name);
        EXPECT_EQ(ColorOf(color), row.rgb);
    }
    for (const std::int32_t color : {0, 10, -1, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(ColorOf(color), Rgb{});
    }
}

TEST(Selection, TogglesAndClears) {
    FunctionList functions;
    EXPECT_FALSE(AnySelected(functions));
    ToggleSelected(functions[8]);
    EXPECT_EQ(functions[8].selected, 1);
    EXPECT_TRUE(AnySelected(functions));
    ToggleSelected(functions[8]);
    EXPECT_FALSE(AnySelected(functions));
    functions[8].selected = 2;
    EXPECT_FALSE(AnySelected(functions)) << "1 alone means selected";
    ToggleSelected(functions[8]);
    EXPECT_EQ(functions[8].selected, 1);
    for (FunctionEntry& entry : functions)
        entry.selected = 1;
    UnselectAll(functions);
    for (const FunctionEntry& entry : functions)
        EXPECT_EQ(entry.selected, 0);
}

TEST(ReleaseFunctions, LeavesTheSettings) {
    FunctionList functions;
    FunctionEntry& entry = functions[3];
    entry.type = EquationType::Parametric;
    entry.color = 5;
    entry.selected = 1;
    entry.method.approx_val = 6;
    entry.text = entry.workingText = entry.yText = u"x";
    entry.compiled = {CompileExpression(u"x"), CompileExpression(u"x")};
    entry.samples.resize(3);
    entry.points = {{1, 2, 3}, {4, 5, 6}};
    entry.pointPixels.resize(3);
    ASSERT_NE(entry.compiled[1].program, nullptr);
    ReleaseFunctions(functions);
    ReleaseFunctions(functions);
    EXPECT_TRUE(entry.text.empty() && entry.workingText.empty() && entry.yText.empty());
    EXPECT_TRUE(entry.samples.empty() && entry.points.x.empty());
    EXPECT_TRUE(entry.points.y.empty() && entry.pointPixels.empty());
    EXPECT_EQ(entry.compiled[0].program, nullptr);
    EXPECT_EQ(entry.compiled[1].program, nullptr);
    EXPECT_EQ(entry.type, EquationType::Parametric);
    EXPECT_EQ(entry.color, 5);
    EXPECT_EQ(entry.selected, 1);
    EXPECT_EQ(entry.method.approx_val, 6);
}

}  // namespace
}  // namespace kalvex
