#include <gtest/gtest.h>

#include <cmath>

#include "graph/curves.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;

TEST(SamplePolar, TakesASampleEveryTwoDegrees) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    FunctionEntry entry = MakeEntry(EquationType::Polar, u"x");
    DrawList list;
    PlotPolar(entry, viewport, 2.0, Pen{}, list);
    ASSERT_EQ(entry.samples.size(), 360u);
    const double last = 359 * 0.03490658503988659;
    EXPECT_EQ(entry.samples[359].parameter, last) << "718 degrees";
    EXPECT_EQ(entry.samples[359].x, last * std::cos(last));
    EXPECT_EQ(entry.samples[359].column, 0) << "the last one is unplotted";
    EXPECT_EQ(entry.samples[359].row, 0);
    EXPECT_EQ(entry.samples[358].column, WorldToScreenX(viewport.view, entry.samples[358].x));
    const auto lines = fixtures::RecordsOf<SegmentsRecord>(list);
    ASSERT_EQ(lines.size(), 1u);
    const std::size_t shown = fixtures::PixelsOf(lines[0].segments).size();
    EXPECT_LE(shown, 359u);
    EXPECT_GE(shown, 340u) << "lines of no length are left out";
}

TEST(SamplePolar, BoundsTheAngle) {
    const struct {
        double maxAngle;
        std::size_t count;
    } rows[] = {{1.0, 180},
                {0.0, 0},
                {-3.0, 0},
                {1.009, 181},
                {1e300, 180000},
                {std::numeric_limits<double>::quiet_NaN(), 0},
                {std::numeric_limits<double>::infinity(), 180000}};
    for (const auto& row : rows) {
        FunctionEntry entry = MakeEntry(EquationType::Polar, u"1");
        DrawList list;
        PlotPolar(entry, MakeViewport(-2, 2, -2, 2), row.maxAngle, Pen{}, list);
        EXPECT_EQ(entry.samples.size(), row.count) << row.maxAngle;
    }
}

TEST(SamplePolar, BreaksOnlyAtUndefinedRadii) {
    FunctionEntry entry = MakeEntry(EquationType::Polar, u"ln(x-1)");
    DrawList list;
    PlotPolar(entry, MakeViewport(-2, 2, -2, 2), 1.0, Pen{}, list);
    EXPECT_EQ(entry.samples[10].column, 0);
    EXPECT_NE(entry.samples[10].status, 0);
    EXPECT_EQ(entry.samples[10].x, UndefinedValue);
    const auto lines = fixtures::RecordsOf<SegmentsRecord>(list);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(PixelOf(lines[0].segments.front().from),
              (PixelPoint{entry.samples[29].column, entry.samples[29].row}));
    // No jump threshold: a spike far beyond the picture stays joined.
    FunctionEntry spike = MakeEntry(EquationType::Polar, u"1/(x-3)");
    DrawList joined;
    PlotPolar(spike, MakeViewport(-1e-3, 1e-3, -1e-3, 1e-3), 1.0, Pen{}, joined);
    EXPECT_EQ(fixtures::RecordsOf<SegmentsRecord>(joined)[0].segments.size(), 179u);
}

TEST(SamplePolar, LeavesASampleWithAnUndefinedRightNeighbourUnplotted) {
    const Viewport viewport = MakeViewport(-2, 2, -2, 2);
    FunctionEntry entry = MakeEntry(EquationType::Polar, u"ln(3-x)");
    DrawList list;
    PlotPolar(entry, viewport, 1.0, Pen{}, list);
    const CurveSample& last = entry.samples[85];  // 170 degrees, just below 3
    EXPECT_EQ(last.status, 0);
    EXPECT_NE(last.x, UndefinedValue);
    EXPECT_EQ(last.column, 0);
    EXPECT_EQ(last.row, 0);
    EXPECT_EQ(entry.samples[86].y, UndefinedValue);
    const auto lines = fixtures::RecordsOf<SegmentsRecord>(list);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(
        PixelOf(lines[0].segments.back().to),
        (PixelPoint{WorldToScreenX(viewport.view, last.x), WorldToScreenY(viewport.view, last.y)}))
        << "the line still ends on it";
}

TEST(SamplePolar, SurvivesEveryWindow) {
    for (const auto* text : {u"x", u"1/x", u"exp(100*x)"})
        for (const auto& [low, high] : fixtures::ExtremeBounds()) {
            FunctionEntry entry = MakeEntry(EquationType::Polar, text);
            DrawList list;
            PlotPolar(entry, MakeViewport(low, high, low, high), 4.0, Pen{}, list);
            EXPECT_EQ(entry.samples.size(), 720u);
        }
}

}  // namespace
}  // namespace kalvex
