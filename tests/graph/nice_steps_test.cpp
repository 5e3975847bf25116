#include "graph/nice_steps.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "graph/fine_grid.h"

namespace kalvex {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(NiceSteps, FollowEachOther) {
    NiceStep step{1, -1};
    for (const NiceStep& next : {NiceStep{2, -1}, {5, -1}, {1, 0}, {2, 0}}) {
        step = NextStep(step);
        EXPECT_EQ(step, next) << next.digit;
    }
}

TEST(NiceSteps, FitFourToTenTimes) {
    const struct {
        double from, to;
        NiceStep step;
    } rows[] = {{0, 1, {2, -1}},
                {0.5, -0.5, {2, -1}},
                {0, 8, {1, 0}},
                {0, 8.1, {2, 0}},
                {-1e300, 1e300, {2, 299}},
                {-1, 1, {2, -1}},
                {-1, 1.001, {5, -1}},
                {0, 8e-320, {1, -320}},
                {1000, 1000 + 0x1p-40, {2, -13}},
                {1, std::nextafter(1.0, 2.0), {5, -17}},
                {0, 1e308, {2, 307}}};
    for (const auto& row : rows)
        EXPECT_EQ(StepFor({row.from, row.to, 480, 0}), row.step) << row.from << ' ' << row.to;
}

// The bounds are such that the exact positions are known: k steps less the whole number are
// rounded only once.
TEST(NiceMarks, StandWhereTheyBelongHoweverFarFromZero) {
    const double length = 0x1p-40;
    for (const double far : {0.0, 1.0, 1000.0, -1000.0, 4095.0}) {
        const AxisSpan span{far, far + length, 480, -far * (480 / length)};
        const auto marks = MarksAt(span, {1, -13});
        ASSERT_EQ(marks.size(), 10u) << far;
        for (const NiceMark& mark : marks) {
            const std::int64_t rest = mark.k - static_cast<std::int64_t>(far) * 10000000000000;
            EXPECT_NEAR(mark.position, static_cast<double>(rest) * 1e-13 / length * 480, 1e-9)
                << far << ' ' << rest;
        }
    }
}

TEST(NiceMarks, CountFromTheOtherEndInAReversedWindow) {
    const auto marks = MarksAt({0.5, -0.5, 480, 240}, {2, -1});
    ASSERT_EQ(marks.size(), 5u);
    for (const NiceMark& mark : marks)
        EXPECT_EQ(mark.position, 240.0 - 96.0 * static_cast<double>(mark.k));
}

TEST(NiceMarks, LieOnThePicture) {
    const auto marks = MarksAt({0, 1, 480, 0}, {2, -1});
    ASSERT_EQ(marks.size(), 5u);
    EXPECT_EQ(marks.front().position, 0.0);
    EXPECT_EQ(marks.back().position, 384.0) << "1 is the first column beyond the picture";
}

TEST(NiceMarks, AreNoneWhereThereAreNoPositions) {
    for (const AxisSpan& span : {AxisSpan{1, 1, 480, 0},
                                 {kNan, 1, 480, 0},
                                 {-kInfinity, kInfinity, 480, 0},
                                 {0, kInfinity, 480, 0},
                                 {0, 1, 0, 0},
                                 {0, 1, 9, 0},
                                 {-1e300, 1e300, 480, 240}}) {
        EXPECT_TRUE(MarksAt(span, {1, -1}).empty()) << span.from << ' ' << span.to;
    }
    EXPECT_FALSE(MarksAt({0, 1, 10, 0}, {1, -1}).empty());
}

TEST(LightStep, DividesTheStepIntoLinesThatAreNotTooDense) {
    const struct {
        NiceStep step;
        std::int32_t pixels;  ///< of ten units
        std::optional<NiceStep> light;
    } rows[] = {{{1, 0}, 800, NiceStep{1, -1}}, {{1, 0}, 799, NiceStep{2, -1}},
                {{1, 0}, 399, NiceStep{5, -1}}, {{1, 0}, 159, std::nullopt},
                {{2, 0}, 400, NiceStep{2, -1}}, {{2, 0}, 399, NiceStep{5, -1}},
                {{2, 0}, 159, NiceStep{1, 0}},  {{2, 0}, 79, std::nullopt},
                {{5, 0}, 160, NiceStep{5, -1}}, {{5, 0}, 159, NiceStep{1, 0}},
                {{5, 0}, 79, std::nullopt}};
    for (const auto& row : rows)
        EXPECT_EQ(LightStep({0, 10, row.pixels, 0}, row.step), row.light)
            << row.step.digit << ' ' << row.pixels;
}

}  // namespace
}  // namespace kalvex
