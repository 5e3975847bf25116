#include "graph/grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;
using fixtures::PixelSegment;
using fixtures::RecordsOf;

DrawList GridOf(const Viewport& viewport, int kind) {
    DrawList list;
    DrawGrid(viewport, kind, list);
    return list;
}

std::set<std::int32_t> VerticalLines(const DrawList& list) {
    std::set<std::int32_t> columns;
    for (const SegmentsRecord& record : RecordsOf<SegmentsRecord>(list))
        for (const PixelSegment& segment : fixtures::PixelsOf(record.segments))
            if (segment.from.x == segment.to.x) {
                EXPECT_TRUE(columns.insert(segment.from.x).second) << segment.from.x << " twice";
            }
    return columns;
}

TEST(Grid, DrawsGreyLinesAtWholeUnits) {
    const DrawList list = GridOf(MakeViewport(-10, 10, -10, 10), 1);
    const auto records = RecordsOf<SegmentsRecord>(list);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].pen.color, (Rgb{130, 130, 130}));
    EXPECT_EQ(records[0].pen.width, 1);
    const std::set<std::int32_t> columns = VerticalLines(list);
    EXPECT_EQ(columns.size(), 19u) << "no line at position 0, none at the width";
    EXPECT_EQ(*columns.begin(), 12);
    EXPECT_EQ(*columns.rbegin(), 228);
    const auto segments = fixtures::PixelsOf(records[0].segments);
    EXPECT_NE(std::find(segments.begin(), segments.end(), PixelSegment{{120, 0}, {120, 268}}),
              segments.end());
    EXPECT_NE(std::find(segments.begin(), segments.end(), PixelSegment{{0, 134}, {240, 134}}),
              segments.end());
}

TEST(Grid, WidensItsStepInWholeUnits) {
    const struct {
        double half;
        std::int32_t distance;
    } rows[] = {{10, 12}, {30, 12}, {240, 10}};
    for (const auto& row : rows) {
        const auto columns = VerticalLines(GridOf(MakeViewport(-row.half, row.half, -1, 1), 1));
        EXPECT_TRUE(columns.contains(120 + row.distance)) << row.half;
        EXPECT_FALSE(columns.contains(120 + row.distance / 2)) << row.half;
    }
}

TEST(Grid, StartsOutsideThePictureWhenTheOriginIs) {
    EXPECT_EQ(VerticalLines(GridOf(MakeViewport(5.5, 25.5, -1, 1), 1)).size(), 20u);
    EXPECT_EQ(VerticalLines(GridOf(MakeViewport(-25.5, -5.5, -1, 1), 1)).size(), 20u);
    EXPECT_EQ(VerticalLines(GridOf(MakeViewport(10, -10, -1, 1), 1)).size(), 19u) << "mirrored";
}

TEST(Grid, OfAnyOtherKindIsNone) {
    for (const int kind : {0, 3, -1, 255})
        EXPECT_TRUE(GridOf(MakeViewport(-10, 10, -10, 10), kind).records.empty()) << kind;
}

TEST(Grid, DrawsRingsFromTheOutsideIn) {
    const auto rings = RecordsOf<EllipseRecord>(GridOf(MakeViewport(-10, 10, -10, 10), 2));
    // The farthest corner is 179 pixels away, the larger scale 13.
    ASSERT_EQ(rings.size(), 13u);
    for (std::size_t i = 0; i < rings.size(); ++i) {
        EXPECT_TRUE(rings[i].filled);
        EXPECT_EQ(rings[i].fill, (Rgb{255, 255, 255}));
        EXPECT_EQ(rings[i].pen.color, (Rgb{130, 130, 130}));
        if (i > 0) {
            EXPECT_GT(rings[i].left, rings[i - 1].left);
        }
    }
    const EllipseRecord& innermost = rings.back();
    EXPECT_EQ(TruncateToInt32(innermost.left), 108);
    EXPECT_EQ(TruncateToInt32(innermost.top), 120);
    EXPECT_EQ(TruncateToInt32(innermost.right), 132);
    EXPECT_EQ(TruncateToInt32(innermost.bottom), 147);
}

TEST(Grid, LeavesOutOnlyRingsThatMissThePicture) {
    // Origin at (-240, 134): unit rings of 12 x 13.4 pixels, R = trunc(498.3), s = 13.
    const auto rings = RecordsOf<EllipseRecord>(GridOf(MakeViewport(20, 40, -10, 10), 2));
    ASSERT_FALSE(rings.empty());
    EXPECT_EQ(rings.front().right, -240 + 38 * 12);
    EXPECT_LE(rings.back().right, 0);
    EXPECT_GE(rings.back().right, -24);
}

TEST(Grid, HasNoRingsBelowOnePixelPerUnit) {
    EXPECT_TRUE(GridOf(MakeViewport(-1000, 1000, -1000, 1000), 2).records.empty());
    EXPECT_FALSE(GridOf(MakeViewport(-1000, 1000, -10, 10), 2).records.empty());
}

TEST(Grid, SurvivesEveryWindow) {
    for (const auto& [xmin, xmax] : fixtures::ExtremeBounds())
        for (const auto& [ymin, ymax] : fixtures::ExtremeBounds())
            for (const auto& size : fixtures::kExtremeSizes) {
                const Viewport viewport =
                    MakeViewport(xmin, xmax, ymin, ymax, size.width, size.height);
                const auto lines = RecordsOf<SegmentsRecord>(GridOf(viewport, 1));
                if (!lines.empty()) {
                    EXPECT_LE(lines[0].segments.size(),
                              static_cast<std::size_t>(size.width + size.height));
                }
                EXPECT_LE(GridOf(viewport, 2).records.size(),
                          4u * static_cast<std::size_t>(size.width + size.height));
            }
}

}  // namespace
}  // namespace kalvex
