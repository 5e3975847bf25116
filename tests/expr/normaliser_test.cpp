#include "expr/normaliser.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "random_text.h"

namespace kalvex {
namespace {

struct Row {
    std::u16string_view typed;
    std::u16string_view explicitText;
    std::u16string_view implicitText;
};

constexpr Row kRows[] = {
    {u"", u"", u""},
    {u"-", u"0-", u"x*0+0-"},
    {u"+", u"0+", u"x*0+0+"},
    {u"5", u"5", u"x*0+5"},
    {u"2x", u"2*x", u"x*0+2*x"},
    {u"2x^2", u"2*x^2", u"x*0+2*x^2"},
    {u"x2", u"x2", u"x*0+x2"},
    {u"3sin(x)", u"3*sin(x)", u"x*0+3*sin(x)"},
    {u"2(x+1)", u"2*(x+1)", u"x*0+2*(x+1)"},
    {u"x(x+1)", u"x*(x+1)", u"x*0+x*(x+1)"},
    {u"(x+1)(x-1)", u"(x+1)*(x-1)", u"x*0+(x+1)*(x-1)"},
    {u"(x)2", u"(x)*2", u"x*0+(x)*2"},
    {u"(x)x", u"(x)*x", u"x*0+(x)*x"},
    {u"-x", u"0-x", u"x*0+0-x"},
    {u"+*x", u"0+*x", u"x*0+0+*x"},
    {u"(-x)", u"(0-x)", u"x*0+(0-x)"},
    {u"sin(-x)", u"sin(0-x)", u"x*0+sin(0-x)"},
    {u"sin(+x)", u"sin(+x)", u"x*0+sin(+x)"},
    {u"Beta(x,-1)", u"Beta(x,0-1)", u"x*0+Beta(x,0-1)"},
    {u"x^2+y^2-1", u"x^2+y^2-1", u"x*0+x^2+y^2-1"},
    {u"2xy", u"2*xy", u"x*0+2*x*y"},
    {u"xyx", u"xyx", u"x*0+x*y*x"},
    {u"y(x)", u"y(x)", u"x*0+y*(x)"},
    {u"1.5e3", u"1.5*e3", u"x*0+1.5*e3"},
    {u"2\u0451", u"2\u0451", u"x*0+2\u0451"},
    {u"\u0662x", u"\u0662x", u"x*0+\u0662x"},
    {u"2 x", u"2 x", u"x*0+2 x"},
    {u"--x", u"0--x", u"x*0+0--x"},
    {u"(--x", u"(0--x", u"x*0+(0--x"},
};

TEST(Normaliser, RewritesTexts) {
    for (const Row& row : kRows) {
        std::u16string text(row.typed);
        NormaliseExplicit(text, nullptr);
        EXPECT_EQ(ToUtf8(text), ToUtf8(row.explicitText)) << ToUtf8(row.typed);
        text = row.typed;
        NormaliseImplicit(text);
        EXPECT_EQ(ToUtf8(text), ToUtf8(row.implicitText)) << ToUtf8(row.typed);
    }
}

std::vector<MessageBox> BoxesOf(std::u16string& text) {
    std::vector<MessageBox> boxes;
    NormaliseExplicit(text, [&boxes](const MessageBox& box) {
        boxes.push_back(box);
        return MessageAnswer::Ok;
    });
    return boxes;
}

TEST(Normaliser, ShowsTheTextAtEachProductBehindABracket) {
    std::u16string text = u"-(-x)(x)2x";
    const std::vector<MessageBox> boxes = BoxesOf(text);
    EXPECT_EQ(ToUtf8(text), "0-(0-x)*(x)*2*x");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(ToUtf8(boxes[0].text), "-(-x)*(x)2x");
    EXPECT_EQ(ToUtf8(boxes[1].text), "-(-x)*(x)*2x");
    for (const MessageBox& box : boxes) {
        EXPECT_EQ(ToUtf8(box.caption), "Test");
        EXPECT_EQ(box.icon, MessageIcon::None);
        EXPECT_EQ(box.buttons, MessageButtons::Ok);
    }
}

TEST(Normaliser, ShowsNothingForOtherProducts) {
    std::u16string text = u"2x(3sin(x)+x)";
    EXPECT_TRUE(BoxesOf(text).empty());
    EXPECT_EQ(ToUtf8(text), "2*x*(3*sin(x)+x)");
}

// The definition taken literally: scans that insert characters in place.
bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool IsLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

bool NeedsStar(char16_t c, char16_t next, bool twoVariables) {
    if (IsDigit(c) && (IsLetter(next) || next == u'(')) return true;
    if (c == u'x' && (next == u'(' || (twoVariables && next == u'y'))) return true;
    if (twoVariables && c == u'y' && (next == u'(' || next == u'x')) return true;
    return c == u')' && (IsDigit(next) || IsLetter(next) || next == u'(');
}

void SlowNormalise(std::u16string& text, bool twoVariables, std::vector<std::u16string>& shown) {
    if (text.empty()) return;
    if (text.size() != 1) {
        for (std::size_t i = 0; i < text.size() - 1; ++i) {
            if (!NeedsStar(text[i], text[i + 1], twoVariables)) continue;
            text.insert(i + 1, 1, u'*');
            if (text[i] == u')' && !twoVariables) shown.push_back(text);
        }
    }
    if (text.size() != 1) {
        for (std::size_t i = 0; i < text.size() - 1; ++i) {
            if ((text[i] == u'(' || text[i] == u',') && text[i + 1] == u'-') {
                text.insert(i + 1, 1, u'0');
            }
        }
    }
    if (text[0] == u'-' || text[0] == u'+') text = u"0" + text;
    if (twoVariables) text = u"x*0+" + text;
}

TEST(Normaliser, AgreesWithTheLiteralScan) {
    std::mt19937 random(1);
    for (int i = 0; i < 40000; ++i) {
        const std::u16string typed = test::RandomText(random, 14);
        std::u16string text = typed;
        std::u16string expected = typed;
        std::vector<std::u16string> shown;
        SlowNormalise(expected, false, shown);
        const std::vector<MessageBox> boxes = BoxesOf(text);
        ASSERT_EQ(text, expected) << ToUtf8(typed);
        ASSERT_EQ(boxes.size(), shown.size()) << ToUtf8(typed);
        for (std::size_t b = 0; b < shown.size(); ++b)
            ASSERT_EQ(boxes[b].text, shown[b]);
        text = typed;
        expected = typed;
        NormaliseImplicit(text);
        SlowNormalise(expected, true, shown);
        ASSERT_EQ(text, expected) << ToUtf8(typed);
    }
}

TEST(Normaliser, IsLinearInTheLength) {
    // A million insertions. An implementation that moves the rest of the text each time takes
    // minutes.
    std::u16string text;
    for (int i = 0; i < 1000000; ++i)
        text += u"2x";
    NormaliseExplicit(text, nullptr);
    EXPECT_EQ(text.size(), 3000000U);
    text.assign(1000000, u'(');
    NormaliseImplicit(text);
    EXPECT_EQ(text.size(), 1000004U);
}

TEST(NormaliseExplicit, ShowsAtMost255Boxes) {
    std::u16string text = u"(x)";
    for (int i = 0; i < 300; ++i)
        text += u"(x)";
    int boxes = 0;
    NormaliseExplicit(text, [&boxes](const MessageBox&) {
        ++boxes;
        return MessageAnswer::Ok;
    });
    EXPECT_EQ(boxes, 255);
    EXPECT_EQ(text.size(), 3u * 301u + 300u);
}

}  // namespace
}  // namespace kalvex
