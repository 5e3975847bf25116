#include "base/encoding.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(Encoding, ConvertsBothWays) {
    EXPECT_EQ(ToUtf16("x^2"), u"x^2");
    EXPECT_EQ(ToUtf16("\xD0\xB1\xE2\x82\xAC\xF0\x9F\x98\x80"), u"\u0431\u20AC\U0001F600");
    EXPECT_EQ(ToUtf8(u"\u0431\u20AC\U0001F600"), "\xD0\xB1\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(Widen("abc"), u"abc");
}

TEST(DecodeUtf8, SaysHowLongACharacterIsAndWhetherItIsOne) {
    const struct {
        std::string_view bytes;
        char32_t codePoint;
        std::size_t length;
        bool wellFormed;
    } rows[] = {
        {"ab", U'a', 1, true},
        {"\xC3\xA4", U'\u00E4', 2, true},
        {"\xF0\x9F\x98\x80", U'\U0001F600', 4, true},
        {"\xEF\xBF\xBD", U'\uFFFD', 3, true},
        {"\xC3", U'\uFFFD', 1, false},
        {"\xE4 b", U'\uFFFD', 1, false},
    };
    for (const auto& row : rows) {
        const Utf8Character found = DecodeUtf8(row.bytes, 0);
        EXPECT_EQ(found.codePoint, row.codePoint) << row.bytes;
        EXPECT_EQ(found.length, row.length) << row.bytes;
        EXPECT_EQ(found.wellFormed, row.wellFormed) << row.bytes;
    }
}

TEST(Encoding, ReplacesWhatIsMalformed) {
    EXPECT_EQ(ToUtf16("a\xFF"
                      "b"),
              u"a\uFFFDb");
    EXPECT_EQ(ToUtf16("\xC0\xAF"), u"\uFFFD\uFFFD");            // overlong
    EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // a surrogate
    EXPECT_EQ(ToUtf16("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xE2\x82"), u"\uFFFD\uFFFD");  // cut
    const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00, 0};
    EXPECT_EQ(ToUtf8(lone),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

}  // namespace
}  // namespace kalvex
