#include <gtest/gtest.h>

#include "graph/curves.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;

DrawList PlotOf(FunctionEntry& entry, const Viewport& viewport) {
    DrawList list;
    PlotDecart(entry, viewport, Pen{}, list);
    return list;
}

TEST(SampleDecart, TakesOneSamplePerColumnOverOneIntervalLess) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    const auto samples = SampleDecart(CompileExpression(u"2*x"), viewport);
    ASSERT_EQ(samples.size(), 240u);
    EXPECT_EQ(samples.front().x, -10.0);
    EXPECT_NEAR(samples.back().x, 10.0, 1e-12);
    EXPECT_EQ(samples.back().y, 20.0) << "evaluated at Xmin + i * h";
}

TEST(SampleDecart, StoresARunningX) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    const auto samples = SampleDecart(CompileExpression(u"x"), viewport);
    const double step = 20.0 / 239.0;
    double running = -10.0;
    bool differs = false;
    for (std::size_t i = 0; i < samples.size(); ++i, running += step) {
        EXPECT_EQ(samples[i].x, running) << i;
        EXPECT_EQ(samples[i].y, -10.0 + static_cast<double>(i) * step) << i;
        EXPECT_EQ(samples[i].column, WorldToScreenX(viewport.view, running)) << i;
        differs |= samples[i].x != samples[i].y;
    }
    EXPECT_TRUE(differs);
}

TEST(SampleDecart, StartsAtTheFirstSampleWithADefinedNeighbour) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    FunctionEntry entry = MakeEntry(EquationType::Decart, u"ln(x)");
    const DrawList list = PlotOf(entry, viewport);
    for (std::size_t i = 0; i < 120; ++i) {
        EXPECT_EQ(entry.samples[i].column, 0) << i;
        EXPECT_EQ(entry.samples[i].row, 0) << i;
        EXPECT_EQ(entry.samples[i].y, UndefinedValue) << i;
        EXPECT_NE(entry.samples[i].status, 0) << i;
    }
    const auto lines = fixtures::RecordsOf<PolylineRecord>(list);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].points.size(), 120u);
    EXPECT_EQ(PixelOf(lines[0].points[0]).x, entry.samples[120].column);
}

TEST(SampleDecart, LeavesASampleWithAnUndefinedNeighbourUnplotted) {
    const auto samples =
        SampleDecart(CompileExpression(u"1/(x-2)"), MakeViewport(0, 4, -10, 10, 5, 9));
    EXPECT_NE(samples[0].row, 0);
    EXPECT_EQ(samples[1].column, 0);
    EXPECT_EQ(samples[1].y, -1.0) << "its value stays";
    EXPECT_EQ(samples[2].y, UndefinedValue);
    EXPECT_NE(samples[3].column, 0);
    EXPECT_NE(samples[4].column, 0) << "the last one needs no neighbour";
}

TEST(SampleDecart, BreaksAPoleOnlyWhenTheJumpIsHighEnough) {
    const struct {
        double half;
        std::size_t runs;
    } rows[] = {{10, 1}, {0.001, 2}};
    for (const auto& row : rows) {
        FunctionEntry entry = MakeEntry(EquationType::Decart, u"1/x");
        const DrawList list = PlotOf(entry, MakeViewport(-row.half, row.half, -10, 10));
        EXPECT_EQ(fixtures::RecordsOf<PolylineRecord>(list).size(), row.runs) << row.half;
    }
}

TEST(SampleDecart, SurvivesEveryWindow) {
    for (const auto* text : {u"x", u"1/x", u"exp(x)", u"sin(x)"})
        for (const auto& [low, high] : fixtures::ExtremeBounds())
            for (const auto& size : fixtures::kExtremeSizes) {
                FunctionEntry entry = MakeEntry(EquationType::Decart, text);
                PlotOf(entry, MakeViewport(low, high, low, high, size.width, size.height));
                EXPECT_EQ(entry.samples.size(), static_cast<std::size_t>(size.width));
            }
}

}  // namespace
}  // namespace kalvex
