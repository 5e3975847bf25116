#include "graph/axes.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;
using fixtures::PixelSegment;

std::vector<PixelSegment> AxesOf(const Viewport& viewport) {
    DrawList list;
    DrawAxes(viewport, list);
    const auto records = fixtures::RecordsOf<SegmentsRecord>(list);
    if (records.empty()) return {};
    EXPECT_EQ(records[0].pen.color, Rgb{});
    EXPECT_EQ(records[0].pen.width, 1);
    return fixtures::PixelsOf(records[0].segments);
}

bool Contains(const std::vector<PixelSegment>& segments, const PixelSegment& segment) {
    return std::find(segments.begin(), segments.end(), segment) != segments.end();
}

TEST(Axes, RunThroughTheOriginWithTicksOfTwoPixels) {
    const auto segments = AxesOf(MakeViewport(-10, 10, -10, 10));
    for (const PixelSegment& expected : {
             PixelSegment{{120, 0}, {120, 268}},
             PixelSegment{{0, 134}, {240, 134}},
             PixelSegment{{108, 134}, {108, 133}},
             PixelSegment{{12, 134}, {12, 133}},
             PixelSegment{{132, 134}, {132, 133}},
             PixelSegment{{120, 120}, {121, 120}},
             PixelSegment{{120, 147}, {121, 147}},
         })
        EXPECT_TRUE(Contains(segments, expected)) << expected.from.x << ' ' << expected.from.y;
    EXPECT_FALSE(Contains(segments, {{0, 134}, {0, 133}})) << "position 0 has no tick";
}

TEST(Axes, BoundRightHandTicksByTheHeight) {
    const auto tall = AxesOf(MakeViewport(-10, 10, -10, 10));
    EXPECT_TRUE(Contains(tall, {{264, 134}, {264, 133}})) << "beyond the last column";
    EXPECT_FALSE(Contains(tall, {{276, 134}, {276, 133}}));
    const auto wide = AxesOf(MakeViewport(-10, 10, -10, 10, 600, 310));
    EXPECT_FALSE(Contains(wide, {{330, 155}, {330, 154}})) << "stops short of the edge";
    EXPECT_TRUE(Contains(wide, {{270, 155}, {270, 154}}));
}

TEST(Axes, AreNotDrawnAtPositionZeroButTheirTicksAre) {
    const auto segments = AxesOf(MakeViewport(0, 20, -10, 10));
    EXPECT_FALSE(Contains(segments, {{0, 0}, {0, 268}}));
    EXPECT_TRUE(Contains(segments, {{0, 120}, {1, 120}}));
    EXPECT_TRUE(Contains(segments, {{0, 134}, {240, 134}}));
    const auto below = AxesOf(MakeViewport(-10, 10, -20, 0));
    EXPECT_FALSE(Contains(below, {{0, 0}, {240, 0}}));
    EXPECT_TRUE(Contains(below, {{108, 0}, {108, -1}}));
    EXPECT_TRUE(Contains(below, {{120, 0}, {120, 268}}));
}

TEST(Axes, ShareATickPerPixelInAHugeWindow) {
    const auto segments = AxesOf(MakeViewport(-1e300, 1e300, -1e300, 1e300));
    EXPECT_LE(segments.size(), 2u + 3u * 268u);
    for (std::int32_t column = 0; column < 240; ++column) {
        EXPECT_TRUE(Contains(segments, {{column, 134}, {column, 133}})) << column;
    }
}

TEST(Axes, SurviveEveryWindow) {
    for (const auto& [xmin, xmax] : fixtures::ExtremeBounds())
        for (const auto& [ymin, ymax] : fixtures::ExtremeBounds())
            for (const auto& size : fixtures::kExtremeSizes)
                EXPECT_LE(
                    AxesOf(MakeViewport(xmin, xmax, ymin, ymax, size.width, size.height)).size(),
                    static_cast<std::size_t>(2 * size.width + 3 * size.height + 4));
}

}  // namespace
}  // namespace kalvex
