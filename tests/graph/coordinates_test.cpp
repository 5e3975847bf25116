#include "graph/coordinates.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;

std::vector<TextRecord> NumbersOf(const Viewport& viewport) {
    DrawList list;
    DrawCoordinates(viewport, fixtures::MeasureFixed, list);
    return fixtures::RecordsOf<TextRecord>(list);
}

std::size_t CountOf(const std::vector<TextRecord>& numbers, std::u16string_view text) {
    return static_cast<std::size_t>(std::count_if(
        numbers.begin(), numbers.end(), [&](const TextRecord& one) { return one.text == text; }));
}

void ExpectTidy(const std::vector<TextRecord>& numbers, const Viewport& viewport) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const TextRecord& a = numbers[i];
        const TextExtent extent = fixtures::MeasureFixed(a.text, a.height);
        EXPECT_EQ(a.height, 10);
        EXPECT_EQ(a.color, Rgb{});
        EXPECT_GE(a.x, 0);
        EXPECT_GE(a.y, 0);
        EXPECT_LE(a.x + extent.width, viewport.ClientWidth);
        EXPECT_LE(a.y + extent.height, viewport.ClientHeight);
        for (std::size_t j = 0; j < i; ++j) {
            const TextRecord& b = numbers[j];
            const TextExtent other = fixtures::MeasureFixed(b.text, b.height);
            EXPECT_FALSE(a.x < b.x + other.width && b.x < a.x + extent.width &&
                         a.y < b.y + other.height && b.y < a.y + extent.height);
        }
    }
}

TEST(Coordinates, StandOnBothAxes) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    const auto numbers = NumbersOf(viewport);
    ExpectTidy(numbers, viewport);
    EXPECT_EQ(CountOf(numbers, u"0"), 1u);
    EXPECT_EQ(CountOf(numbers, u"-0"), 0u);
    for (const auto* text : {u"2", u"-2", u"4", u"6", u"8"})
        EXPECT_EQ(CountOf(numbers, text), 2u);
    const auto two = std::find_if(numbers.begin(), numbers.end(),
                                  [](const TextRecord& one) { return one.text == u"2"; });
    EXPECT_EQ(two->x + 3, 144) << "centred under its column";
    EXPECT_GT(two->y, 134);
}

TEST(Coordinates, StayInThePictureWhenTheAxisLeavesIt) {
    for (const auto& [low, high] : {std::pair{5.0, 25.0}, std::pair{-25.0, -5.0}}) {
        const Viewport viewport = MakeViewport(low, high, low, high);
        const auto numbers = NumbersOf(viewport);
        EXPECT_GE(numbers.size(), 8u);
        EXPECT_EQ(CountOf(numbers, u"0"), 0u);
        ExpectTidy(numbers, viewport);
    }
    EXPECT_EQ(CountOf(NumbersOf(MakeViewport(-10, 10, 5, 25)), u"0"), 1u);
    EXPECT_EQ(CountOf(NumbersOf(MakeViewport(5, 25, -10, 10)), u"0"), 1u);
}

TEST(Coordinates, StandAtASingleMark) {
    const struct {
        double low, high;
        std::u16string_view text;
    } rows[] = {{0.5, 1.3, u"1"}, {3.9, 4.1, u"4"}, {-7.01, -6.98, u"-7"}, {1.3, 0.5, u"1"}};
    for (const auto& row : rows) {
        const auto acrossX = NumbersOf(MakeViewport(row.low, row.high, -1e-3, 1e-3));
        EXPECT_EQ(CountOf(acrossX, row.text), 1u) << row.low;
        const auto acrossY = NumbersOf(MakeViewport(-1e-3, 1e-3, row.low, row.high));
        EXPECT_EQ(CountOf(acrossY, row.text), 1u) << row.low;
    }
}

TEST(Coordinates, FollowAMirroredAxis) {
    const auto numbers = NumbersOf(MakeViewport(10, -10, -10, 10));
    const auto isBelowX = [](const TextRecord& one) {
        return one.text == u"-8" && one.y > 134 && one.y < 140;
    };
    const auto found = std::find_if(numbers.begin(), numbers.end(), isBelowX);
    ASSERT_NE(found, numbers.end());
    EXPECT_GT(found->x, 120);
}

TEST(Coordinates, SurviveEveryWindow) {
    for (const auto& [xmin, xmax] : fixtures::ExtremeBounds())
        for (const auto& [ymin, ymax] : fixtures::ExtremeBounds())
            for (const auto& size : fixtures::kExtremeSizes) {
                const Viewport viewport =
                    MakeViewport(xmin, xmax, ymin, ymax, size.width, size.height);
                const auto numbers = NumbersOf(viewport);
                ExpectTidy(numbers, viewport);
                EXPECT_EQ(CountOf(numbers, u"-0"), 0u);
                EXPECT_LE(CountOf(numbers, u"0"), 1u);
            }
}

}  // namespace
}  // namespace kalvex
