#include "cli/point_list.h"

#include <gtest/gtest.h>

#include <limits>

namespace kalvex {
namespace {

TEST(ParsePoint, TakesAYOnlyWhereThereIsOne) {
    EXPECT_EQ(ParsePoint("-1", false)->x, -1.0);
    EXPECT_FALSE(ParsePoint("1,2", false));
    EXPECT_EQ(ParsePoint("1,2", true)->y, 2.0);
    EXPECT_EQ(ParsePoint("1", true)->y, 0.0);
    for (const std::string_view text : {"", ",", "1,", ",1", "1,2,3", "x"})
        EXPECT_FALSE(ParsePoint(text, true)) << text;
}

TEST(ParseRange, WantsAtLeastOnePoint) {
    EXPECT_EQ(ParseRange("-1,1,5")->count, 5);
    for (const std::string_view text :
         {"", "1,2", "1,2,0", "1,2,-3", "1,2,2.5", "1,2,3,4", "a,2,3", "1,2,nan"})
        EXPECT_FALSE(ParseRange(text)) << text;
}

TEST(PointAt, GivesSinglePointsFirstThenTheRange) {
    const PointList points{{{7, 8}, {9, 0}}, EvenRange{-1, 1, 5}};
    ASSERT_EQ(CountOf(points), 7);
    EXPECT_EQ(PointAt(points, 0).y, 8.0);
    const double xs[] = {7, 9, -1, -0.5, 0, 0.5, 1};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(PointAt(points, i).x, xs[i]) << i;
}

TEST(PointAt, GivesTheStartOfARangeOfOne) {
    EXPECT_EQ(PointAt({{}, EvenRange{3, 4, 1}}, 0).x, 3.0);
}

TEST(PointAt, ReachesTheEndOfAHugeRange) {
    const std::int64_t count = std::int64_t{1} << 53;
    const PointList points{{}, EvenRange{0, 1, count}};
    EXPECT_EQ(CountOf(points), count);
    EXPECT_EQ(PointAt(points, count - 1).x, 1.0);
}

}  // namespace
}  // namespace kalvex
