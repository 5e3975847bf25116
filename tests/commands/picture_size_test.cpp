#include "commands/picture_size.h"

#include <gtest/gtest.h>

#include <string>

namespace kalvex {
namespace {

constexpr PixelSize kSeen{480, 568};

TEST(PictureSize, FollowsTheChoice) {
    const struct {
        PictureSize size;
        PixelSize seen;
        PixelSize made;
    } rows[] = {
        {{SizeChoice::AsSeen, 0}, kSeen, {480, 568}},
        {{SizeChoice::Twice, 9}, kSeen, {960, 1136}},
        {{SizeChoice::FourTimes, 9}, kSeen, {1920, 2272}},
        {{SizeChoice::OwnWidth, 1000}, kSeen, {1000, 1183}},
        {{SizeChoice::OwnWidth, 60}, kSeen, {60, 71}},
        {{SizeChoice::OwnWidth, 240}, {480, 1}, {240, 1}},
        {{SizeChoice::OwnWidth, 32767}, {1023, 1}, {32767, 32}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(SizeOf(row.size, row.seen), row.made)
            << static_cast<int>(row.size.choice) << ' ' << row.size.ownWidth;
}

TEST(PictureSize, EveryOwnWidthIsMadeExactly) {
    for (std::int32_t seen : {1, 7, 239, 480, 1919})
        for (std::int32_t width = (seen + 7) / 8; width <= std::min(64 * seen, 32767); ++width)
            ASSERT_EQ(SizeOf({SizeChoice::OwnWidth, width}, {seen, 1}).width, width) << seen;
}

TEST(ReadPictureSize, TakesWhatCanBeMade) {
    const struct {
        SizeChoice choice;
        std::u16string_view text;
        std::int32_t ownWidth;
    } rows[] = {
        {SizeChoice::AsSeen, u"nonsense", 5},      {SizeChoice::Twice, u"", 5},
        {SizeChoice::FourTimes, u"1e99", 5},       {SizeChoice::OwnWidth, u"60", 60},
        {SizeChoice::OwnWidth, u" 15000 ", 15000}, {SizeChoice::OwnWidth, u"1e3", 1000},
    };
    for (const auto& row : rows) {
        PictureSize size{SizeChoice::AsSeen, 5};
        EXPECT_FALSE(ReadPictureSize(row.choice, row.text, kSeen, size).has_value());
        EXPECT_EQ(size.choice, row.choice);
        EXPECT_EQ(size.ownWidth, row.ownWidth);
    }
}

TEST(ReadPictureSize, RefusesAndSaysWhy) {
    const std::u16string width = u"The width must be a whole number from 60 to 30720.";
    const std::u16string wide = u"The width must be a whole number from 250 to 32767.";
    const std::u16string tooLarge =
        u" pixels cannot be made. At most 32767 pixels in each direction and 268 million pixels "
        u"in all are possible.";
    const struct {
        SizeChoice choice;
        std::u16string_view text;
        PixelSize seen;
        std::size_t field;
        std::u16string message;
    } rows[] = {
        {SizeChoice::OwnWidth, u"", kSeen, 1, width},
        {SizeChoice::OwnWidth, u"1000.5", kSeen, 1, width},
        {SizeChoice::OwnWidth, u"59", kSeen, 1, width},
        {SizeChoice::OwnWidth, u"-480", kSeen, 1, width},
        {SizeChoice::OwnWidth, u"30721", kSeen, 1, width},
        {SizeChoice::OwnWidth, u"1e999", kSeen, 1, width},
        {SizeChoice::OwnWidth, u"32768", {2000, 10}, 1, wide},
        {SizeChoice::OwnWidth, u"30000", {480, 640}, 1, u"A picture of 30000 x 40000" + tooLarge},
        {SizeChoice::OwnWidth, u"20000", kSeen, 1, u"A picture of 20000 x 23667" + tooLarge},
        {SizeChoice::FourTimes, u"", {8192, 100}, 0, u"A picture of 32768 x 400" + tooLarge},
        {SizeChoice::FourTimes, u"", {4200, 4200}, 0, u"A picture of 16800 x 16800" + tooLarge},
    };
    for (const auto& row : rows) {
        PictureSize size{SizeChoice::Twice, 7};
        const auto problem = ReadPictureSize(row.choice, row.text, row.seen, size);
        ASSERT_TRUE(problem.has_value()) << std::string(row.text.begin(), row.text.end());
        EXPECT_EQ(problem->field, row.field);
        EXPECT_EQ(problem->message, row.message);
        EXPECT_EQ(size.choice, SizeChoice::Twice) << "nothing is taken";
        EXPECT_EQ(size.ownWidth, 7);
    }
}

}  // namespace
}  // namespace kalvex
