#include "resources/strings.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(Text, GivesTheTextOfANumber) {
    EXPECT_EQ(Text(StringId::Title), u"Kalvex");
    EXPECT_EQ(Text(static_cast<StringId>(42)), u"Sucsses!");
    EXPECT_EQ(Text(static_cast<StringId>(-1)), u"");
}

// Texts that point files and methods show; scripts and users know them letter by letter.
TEST(Text, HasTheTextsOfPointFiles) {
    const struct {
        int number;
        std::u16string_view text;
    } rows[] = {
        {75, u"Error in file!"},
        {76,
         u"The file %s has very many lines, the construction schedule can take a very long time. "
         u"Continue?"},
        {77, u"When linear interpolation, extrapolation is impossible"},
        {78, u"Approx. type"},
        {79,
         u"In function %d:\nThe number of terms to use in the approximating polynomial, must be at "
         u"least 1 and it must less than the number of input points."},
        {80, u"Approx."},
        {81, u"Data from file %s approximate with %s.\r\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Text(static_cast<StringId>(row.number)), row.text) << row.number;
}

TEST(Text, HasTheTextsOfHelpAndAbout) {
    EXPECT_EQ(Text(static_cast<StringId>(47)), u"Can't open help file!");
    EXPECT_EQ(Text(StringId::AboutVersion), u"version 3.01 (Build 1801)");
    EXPECT_EQ(Text(StringId::HelpOk), u"Ok");
    EXPECT_EQ(Text(StringId::AboutOk), u"OK");
}

TEST(FillIn, ReplacesPlacesInOrder) {
    EXPECT_EQ(FillIn(Text(StringId::ErrorInFunction), {NumberText(3), u"x+", u"Empty string"}),
              u"Error in 3 function:\nx+\nEmpty string");
    EXPECT_EQ(FillIn(u"100%% of %s%s", {u"all"}), u"100% of all");
    EXPECT_EQ(FillIn(u"50%", {u"unused"}), u"50%");
    EXPECT_EQ(FillIn(u"%s", {u"%d"}), u"%d");
    EXPECT_EQ(NumberText(-12), u"-12");
}

}  // namespace
}  // namespace kalvex
