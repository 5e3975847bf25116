#include "graph/fine_grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graph/graph_fixtures.h"
#include "graph/grid.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;

std::vector<SegmentsRecord> GridOf(const Viewport& viewport, const std::optional<NiceStep>& stepX,
                                   const std::optional<NiceStep>& stepY) {
    DrawList list;
    DrawFineGrid(viewport, stepX, stepY, list);
    return fixtures::RecordsOf<SegmentsRecord>(list);
}

/// The columns of the upright lines of a record.
std::vector<double> ColumnsOf(const SegmentsRecord& lines) {
    std::vector<double> columns;
    for (const Segment& line : lines.segments)
        if (line.from.x == line.to.x) columns.push_back(line.from.x);
    return columns;
}

TEST(FineGrid, HasLighterLinesBelowThoseAtTheNumbers) {
    const auto records = GridOf(MakeViewport(0, 1, 0, 1, 100, 200), NiceStep{5, -1}, std::nullopt);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].pen.color, kLightGridColor);
    EXPECT_EQ(records[1].pen.color, kGridColor);
    EXPECT_EQ(records[0].pen.width, 1);
    EXPECT_EQ(ColumnsOf(records[0]), (std::vector<double>{10, 20, 30, 40, 60, 70, 80, 90}));
    EXPECT_EQ(ColumnsOf(records[1]), (std::vector<double>{0, 50}));
    EXPECT_EQ(records[0].segments.front(), (Segment{{10, 0}, {10, 200}}));
    EXPECT_EQ(records[1].segments.back(), (Segment{{0, 0}, {100, 0}})) << "the row of 1";
    EXPECT_FALSE(std::signbit(records[1].segments.back().from.y));
}

TEST(FineGrid, SurvivesEveryWindow) {
    for (const auto& [xmin, xmax] : fixtures::ExtremeBounds())
        for (const auto& [ymin, ymax] : fixtures::ExtremeBounds())
            for (const auto& size : fixtures::kExtremeSizes) {
                std::size_t lines = 0;
                for (const SegmentsRecord& record :
                     GridOf(MakeViewport(xmin, xmax, ymin, ymax, size.width, size.height),
                            std::nullopt, std::nullopt))
                    lines += record.segments.size();
                EXPECT_LE(lines, static_cast<std::size_t>(size.width + size.height))
                    << xmin << ' ' << ymin;
            }
}

}  // namespace
}  // namespace kalvex
