#include "resources/tip_text.h"

#include <gtest/gtest.h>

#include "resources/strings.h"

namespace kalvex {
namespace {

TEST(SplitTip, CutsAtTheFirstMark) {
    const struct {
        std::u16string_view text;
        std::u16string_view caption;
        std::u16string_view tip;
    } rows[] = {
        {u"", u"", u""},
        {u"Grid", u"Grid", u""},
        {u"Grid~~Shows it", u"Grid", u"Shows it"},
        {u"Grid~~", u"Grid", u""},
        {u"~~tip", u"", u"tip"},
        {u"~~", u"", u""},
        {u"a~b", u"a~b", u""},
        {u"a~", u"a~", u""},
        {u"a~~~b", u"a", u"~b"},
        {u"a~~b~~c", u"a", u"b~~c"},
        {u"a~b~~c", u"a~b", u"c"},
    };
    for (const auto& row : rows) {
        const CaptionAndTip split = SplitTip(row.text);
        EXPECT_TRUE(split.caption == row.caption && split.tip == row.tip)
            << std::string(row.text.begin(), row.text.end());
    }
}

// These texts are fixed letter by letter, the spellings "Wight", "parametr" and "mjde" included.
TEST(SplitTip, OfTheOptions) {
    const struct {
        StringId id;
        std::u16string_view caption;
        std::u16string_view tip;
    } rows[] = {
        {StringId::OptionLineWidth, u"Wight of graph line:",
         u"You can choose the width of the line graphs of functions"},
        {StringId::OptionMaxAngle, u"Max angle in polar mode:",
         u"You can choose the value of the maximum angle in the construction of graph of the "
         u"function in polar coordinates"},
        {StringId::OptionTextSize, u"Text size:",
         u"You can choose the font size of names of functions on the screen"},
        {StringId::OptionMinParam, u"Min value of parametr:",
         u"You can choose the minimum value of the parameter in constructing the graph of a "
         u"function defined parametrically"},
        {StringId::OptionMaxParam, u"Max value of parametr:",
         u"You can choose the maximum value of the parameter in constructing the graph of a "
         u"function defined parametrically"},
        {StringId::OptionColours, u"Colour equ's in Graph Table",
         u"Determine whether function names are displayed color, which is constructed of schedule"},
        {StringId::OptionShowGroup, u"Show on graph window", u""},
        {StringId::OptionLabels, u"Labels",
         u"Determine whether function names are displayed on the screen"},
        {StringId::OptionCoords, u"Coords",
         u"Determine whether to show the signature of coordinates on the axis on the screen"},
        {StringId::OptionGrid, u"Grid", u"Determine whether to display the grid on the screen"},
        {StringId::OptionDerivative, u"Deriv.",
         u"Determine whether to show the derivative on the screen in Trace mjde"},
        {StringId::OptionAxes, u"Axes",
         u"Determine whether to show the coordinate axes on the screen"},
        {StringId::OptionInterpolation, u"Interpolation type:",
         u"Choose the type of interpolation"},
        {StringId::OptionPolarGrid, u"Polar grid",
         u"Draw the grid as circles about the origin instead of lines"},
        {StringId::OptionFineGrid, u"Fine grid",
         u"Draw the lines of the grid at the steps of the numbers, with lighter lines between "
         u"them"},
        {StringId::OptionSmooth, u"Smooth",
         u"Draw curves at their true positions with soft edges instead of pixel by pixel"},
    };
    for (const auto& row : rows) {
        const CaptionAndTip split = SplitTip(Text(row.id));
        EXPECT_TRUE(split.caption == row.caption && split.tip == row.tip)
            << static_cast<int>(row.id);
    }
    EXPECT_TRUE(Text(static_cast<StringId>(45)) == u"MaxParam must be greater than MinParam!");
    EXPECT_TRUE(Text(static_cast<StringId>(49)) == u"Enter expression here");
}

}  // namespace
}  // namespace kalvex
