#include "graph/nice_texts.h"

#include <gtest/gtest.h>

#include "base/encoding.h"

namespace kalvex {
namespace {

std::vector<NiceMark> MarksFrom(std::int64_t first, std::int64_t last) {
    std::vector<NiceMark> marks;
    for (std::int64_t k = first; k <= last; ++k)
        marks.push_back({k, 0.0});
    return marks;
}

std::string Joined(const NiceTexts& texts) {
    std::string joined;
    for (const std::u16string& text : texts.texts)
        joined += ToUtf8(text) + " ";
    return joined + ToUtf8(texts.offset);
}

TEST(NiceTexts, AreExactAndShort) {
    const struct {
        std::int64_t first, last;
        NiceStep step;
        const char* texts;
    } rows[] = {
        {-1, 3, {1, -1}, "-0.1 0 0.1 0.2 0.3 "},
        {2, 5, {2, -1}, "0.4 0.6 0.8 1 "},
        {-1, 1, {5, -1}, "-0.5 0 0.5 "},
        {1, 2, {5, 6}, "5000000 10000000 "},
        {1, 2, {5, 8}, "5e8 1e9 "},
        {1, 2, {5, 299}, "5e299 1e300 "},
        {-2, 1, {2, -13}, "-4e-13 -2e-13 0 2e-13 "},
        {9, 11, {1, -6}, "0.000009 0.00001 0.000011 "},
        {9, 11, {1, -7}, "9e-7 1e-6 1.1e-6 "},
        {617280, 617283, {2, -4}, "123.456 123.4562 123.4564 123.4566 "},
    };
    for (const auto& row : rows) {
        const auto marks = MarksFrom(row.first, row.last);
        EXPECT_EQ(Joined(TextsOf(marks, row.step, true)), row.texts);
        EXPECT_EQ(Joined(TextsOf(marks, row.step, false)), row.texts);
    }
}

TEST(NiceTexts, AreDifferencesFromARoundNumberWhereTheyWouldBeLong) {
    const struct {
        std::int64_t first, last;
        NiceStep step;
        const char* texts;
    } rows[] = {
        {4999999999999998, 5000000000000002, {2, -13}, "-4e-13 -2e-13 0 2e-13 4e-13 +1000"},
        {-5000000000000001, -4999999999999999, {2, -13}, "-2e-13 0 2e-13 +(-1000)"},
        {5000000000000001, 5000000000000003, {2, -13}, "2e-13 4e-13 6e-13 +1000"},
        {1234567891, 1234567893, {1, -9}, "1e-9 2e-9 3e-9 +1.23456789"},
        {-1234567893, -1234567891, {1, -9}, "-3e-9 -2e-9 -1e-9 +(-1.23456789)"},
        {10000000001, 10000000003, {1, -1}, "0.1 0.2 0.3 +1e9"},
        {1000001, 1000003, {1, 196}, "1e196 2e196 3e196 +1e202"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Joined(TextsOf(MarksFrom(row.first, row.last), row.step, true)), row.texts);
    EXPECT_EQ(Joined(TextsOf(MarksFrom(10000000001, 10000000002), {1, -1}, false)),
              "1000000000.1 1000000000.2 ");
    EXPECT_EQ(Joined(TextsOf({}, {1, 0}, true)), "");
}

}  // namespace
}  // namespace kalvex
