#include "painter/line_clip.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(LineClip, KeepsWhatLiesInsideAndCutsTheRest) {
    const QRectF bounds(-10, -10, 120, 70);  // to (110, 60)
    constexpr std::int32_t kFar = 2147483647;
    const struct {
        Segment segment;
        std::optional<QLineF> line;
    } rows[] = {
        {{{0, 0}, {100, 50}}, QLineF(0, 0, 100, 50)},
        {{{-10, -10}, {110, 60}}, QLineF(-10, -10, 110, 60)},
        {{{5, 5}, {5, 5}}, QLineF(5, 5, 5, 5)},
        {{{5, -kFar}, {5, kFar}}, QLineF(5, -10, 5, 60)},
        {{{kFar, 7}, {-kFar, 7}}, QLineF(110, 7, -10, 7)},
        {{{50, 20}, {50, 1000}}, QLineF(50, 20, 50, 60)},
        {{{-1000, -1000}, {1000, 1000}}, QLineF(-10, -10, 60, 60)},
        {{{200, 0}, {200, 50}}, std::nullopt},
        {{{-kFar - 1, -20}, {kFar, -20}}, std::nullopt},
        {{{100, 100}, {200, 0}}, std::nullopt},
        {{{kFar, kFar}, {kFar, kFar}}, std::nullopt},
    };
    for (const auto& row : rows) {
        const auto line = ClipLine(PixelLine(row.segment), bounds);
        ASSERT_EQ(line.has_value(), row.line.has_value()) << row.segment.from.x;
        if (!line) continue;
        EXPECT_NEAR(line->x1(), row.line->x1(), 1e-4);
        EXPECT_NEAR(line->y1(), row.line->y1(), 1e-4);
        EXPECT_NEAR(line->x2(), row.line->x2(), 1e-4);
        EXPECT_NEAR(line->y2(), row.line->y2(), 1e-4);
    }
}

}  // namespace
}  // namespace kalvex
