#include "resources/strings.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace kalvex {
namespace {

TEST(Text, GivesTheTextOfANumber) {
    EXPECT_EQ(Text(StringId::Title), u"Kalvex");
    EXPECT_EQ(Text(static_cast<StringId>(42)), u"Sucsses!");
    EXPECT_EQ(Text(static_cast<StringId>(-1)), u"");
}

// The texts about point files and methods are fixed letter by letter.
TEST(Text, HasTheTextsOfPointFiles) {
    const struct {
        int number;
        std::u16string_view text;
    } rows[] = {
        {75, u"Error in file!"},
        {76,
         u"The file %1 has very many lines, the construction schedule can take a very long time. "
         u"Continue?"},
        {77, u"When linear interpolation, extrapolation is impossible"},
        {78, u"Approx. type"},
        {79,
         u"In function %1:\nThe number of terms to use in the approximating polynomial, must be at "
         u"least 1 and it must less than the number of input points."},
        {80, u"Approx."},
        {81, u"Data from file %1 approximate with %2.\r\n"},
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

// A translation may need the places in another order, so each has a number, and a text that uses
// place 3 uses 1 and 2 as well.
TEST(Text, NumbersItsPlaces) {
    const struct {
        std::string_view name;
        std::u16string_view text;
    } rows[] = {
#define KALVEX_TEXT(name, number, text) {#name, text},
#include "resources/texts/texts.inc"
#undef KALVEX_TEXT
    };
    for (const auto& row : rows) {
        std::set<char16_t> places;
        for (std::size_t i = row.text.find(u'%'); i != row.text.npos; i = row.text.find(u'%', i)) {
            const char16_t place = row.text.substr(i + 1, 1).empty() ? u' ' : row.text[i + 1];
            EXPECT_TRUE(place >= u'1' && place <= u'9') << row.name;
            places.insert(place);
            i += 2;
        }
        if (!places.empty()) {
            EXPECT_EQ(*places.rbegin() - u'0', static_cast<int>(places.size())) << row.name;
        }
    }
}

TEST(FillIn, ReplacesNumberedPlaces) {
    EXPECT_EQ(FillIn(Text(StringId::ErrorInFunction), {NumberText(3), u"x+", u"Empty string"}),
              u"Error in 3 function:\nx+\nEmpty string");
    EXPECT_EQ(FillIn(u"%2 of %1, %2", {u"a", u"b"}), u"b of a, b");
    EXPECT_EQ(FillIn(u"100%% of %1%2", {u"all"}), u"100% of all");
    EXPECT_EQ(FillIn(u"50%", {u"unused"}), u"50%");
    EXPECT_EQ(FillIn(u"5% of %0 %a", {u"unused"}), u"5% of %0 %a");
    EXPECT_EQ(FillIn(u"%1", {u"%1%%"}), u"%1%%");
    EXPECT_EQ(NumberText(-12), u"-12");
}

}  // namespace
}  // namespace kalvex
