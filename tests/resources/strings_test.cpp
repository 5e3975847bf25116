#include "resources/strings.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(Text, GivesTheTextOfANumber) {
    EXPECT_EQ(Text(StringId::Title), u"Kalvex");
    EXPECT_EQ(Text(static_cast<StringId>(42)), u"Sucsses!");
    EXPECT_EQ(Text(static_cast<StringId>(-1)), u"");
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
