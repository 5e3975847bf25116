#include <gtest/gtest.h>

#include <QFontInfo>

#include "painter/painter.h"
#include "painter/text_font.h"

namespace kalvex {
namespace {

TEST(TextMeasure, GrowsWithTextAndHeight) {
    const MeasureText measure = PainterTextMeasure();
    EXPECT_EQ(measure(u"", 14).width, 0);
    EXPECT_GT(measure(u"", 14).height, 0);
    EXPECT_GT(measure(u"sin(x)", 14).width, measure(u"sin", 14).width);
    EXPECT_GT(measure(u"x", 28).height, measure(u"x", 14).height);
    EXPECT_EQ(measure(u"sin(x)", 14).width, PainterTextMeasure()(u"sin(x)", 14).width);
    EXPECT_GT(measure(u"x", 0).height, 0);
    EXPECT_GT(measure(u"x", -7).height, 0);
}

TEST(TextMeasure, UsesTheAskedHeightInPixels) {
    EXPECT_EQ(PictureFont(14).pixelSize(), 14);
    EXPECT_EQ(PictureFont(0).pixelSize(), 1);
    EXPECT_EQ(PictureFont(14).weight(), QFont::Normal);
    EXPECT_FALSE(QFontInfo(PictureFont(14)).fixedPitch());
}

}  // namespace
}  // namespace kalvex
