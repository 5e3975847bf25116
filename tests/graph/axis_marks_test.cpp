#include "graph/axis_marks.h"

#include <gtest/gtest.h>

#include <set>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

/// The pixels of the marks by a plain loop over k; only for axes with few enough marks for it.
std::set<std::int32_t> PlainTowardZero(const AxisLadder& ladder, std::int32_t end) {
    std::set<std::int32_t> pixels;
    for (double k = 0.0;; k += 1.0) {
        const double position = ladder.origin - k * ladder.units * ladder.scale;
        if (!(position > 0.0)) return pixels;
        if (position < end) pixels.insert(static_cast<std::int32_t>(position));
    }
}

std::set<std::int32_t> PlainAwayFromZero(const AxisLadder& ladder, std::int32_t end) {
    std::set<std::int32_t> pixels;
    for (double k = 0.0;; k += 1.0) {
        const double position = ladder.origin + k * ladder.units * ladder.scale;
        if (!(position < end)) return pixels;
        if (position > -1.0) pixels.insert(static_cast<std::int32_t>(position));
    }
}

std::set<std::int32_t> PixelsOf(const std::vector<AxisMark>& marks) {
    std::set<std::int32_t> pixels;
    for (const AxisMark& mark : marks)
        EXPECT_TRUE(pixels.insert(mark.pixel).second) << mark.pixel << " twice";
    return pixels;
}

TEST(AxisMarks, ArePixelForPixelThoseOfThePlainLoops) {
    for (const double origin : {0.0, 120.0, 133.7, -0.7, -55.5, 240.0, 900.25, -1200.0})
        for (const double scale : {0.01, 0.3, 0.9999, 1.0, 1.3, 7.25, 12.0, 96.0, 500.0})
            for (const double units : {1.0, 3.0, 21.0}) {
                const AxisLadder ladder{origin, units, scale};
                EXPECT_EQ(PixelsOf(MarksTowardZero(ladder, 0.0, 240)), PlainTowardZero(ladder, 240))
                    << origin << ' ' << scale << ' ' << units;
                EXPECT_EQ(PixelsOf(MarksAwayFromZero(ladder, 0.0, 240)),
                          PlainAwayFromZero(ladder, 240))
                    << origin << ' ' << scale << ' ' << units;
            }
}

TEST(AxisMarks, StopStrictlyAtZero) {
    const auto marks = MarksTowardZero({36.0, 1.0, 12.0}, 1.0, 240);
    ASSERT_EQ(marks.size(), 2u) << "the rung at position 0 is none";
    EXPECT_EQ(marks[0].pixel, 24);
    EXPECT_EQ(marks[1].pixel, 12);
    EXPECT_EQ(marks[1].k, 2.0);
}

TEST(AxisMarks, TruncateTowardZero) {
    const auto marks = MarksAwayFromZero({-12.7, 1.0, 12.0}, 1.0, 20);
    ASSERT_EQ(marks.size(), 2u);
    EXPECT_EQ(marks[0].pixel, 0) << "-0.7 is pixel 0";
    EXPECT_EQ(marks[1].pixel, 11);
}

TEST(AxisMarks, AreBoundedByThePictureNotByTheWindow) {
    const AxisLadder dense{120.0, 1.0, 1.2e-298};
    EXPECT_EQ(MarksTowardZero(dense, 1.0, 240).size(), 121u) << "pixels 0 to 120";
    EXPECT_EQ(MarksAwayFromZero(dense, 1.0, 240).size(), 120u);
    const AxisLadder far{1e300, 1.0, 1e298};
    EXPECT_LE(MarksTowardZero(far, 1.0, 240).size(), 1u);
    EXPECT_TRUE(MarksTowardZero({-1e300, 1.0, 1.0}, 1.0, 240).empty());
    EXPECT_TRUE(MarksAwayFromZero({1e300, 1.0, 1.0}, 1.0, 240).empty());
}

TEST(AxisMarks, HaveGridStepsOfWholeUnits) {
    const struct {
        double scale;
        double step;
    } rows[] = {{12.0, 1.0}, {4.0, 3.0}, {0.5, 21.0}, {10.0, 2.0}, {96.0, 1.0}, {1e300, 1.0}};
    for (const auto& row : rows)
        EXPECT_EQ(GridStep(row.scale), row.step) << row.scale;
}

TEST(AxisMarks, KnowUnusableMappings) {
    const struct {
        double low, high;
        bool usable;
    } rows[] = {{-10, 10, true},
                {10, -10, true},
                {-1e300, 1e300, true},
                {5, 5, false},
                {-1e308, 1e308, false},
                {-10, std::numeric_limits<double>::infinity(), false},
                {std::numeric_limits<double>::quiet_NaN(), 1, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(HasUsableMapping(fixtures::MakeViewport(row.low, row.high, -1, 1).view),
                  row.usable)
            << row.low << ' ' << row.high;
        EXPECT_EQ(HasUsableMapping(fixtures::MakeViewport(-1, 1, row.low, row.high).view),
                  row.usable)
            << row.low << ' ' << row.high;
    }
}

}  // namespace
}  // namespace kalvex
