#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

#include "expr/eval_error.h"
#include "graph/curves.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;
using fixtures::RecordsOf;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

FunctionEntry EntryOf(const std::vector<double>& x, const std::vector<double>& y,
                      std::int32_t approx) {
    FunctionEntry entry = fixtures::MakeEntry(EquationType::File, u"");
    entry.method.approx = approx;
    entry.points = {x, y};
    return entry;
}

struct Plot {
    DrawList list;
    Failure failure;
};

Plot PlotOf(FunctionEntry& entry, const Viewport& viewport, std::int32_t width = 1) {
    Plot plot;
    plot.failure = plotFileFunction(entry, viewport, Pen{{1, 2, 3}, width}, {}, plot.list);
    return plot;
}

TEST(FileFunction, DrawsItsPointsAsCircles) {
    FunctionEntry entry = EntryOf({-10, 0, 2.5}, {10, 0, -5}, 8);
    const Plot plot = PlotOf(entry, MakeViewport(-10, 10, -10, 10, 200, 100), 5);
    const auto circles = RecordsOf<CircleRecord>(plot.list);
    ASSERT_EQ(circles.size(), 3u);
    const PixelPoint centres[] = {{0, 0}, {100, 50}, {125, 75}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(entry.pointPixels[i].column, centres[i].x);
        EXPECT_EQ(entry.pointPixels[i].row, centres[i].y);
        EXPECT_EQ(PixelOf(circles[i].centre), centres[i]);
        EXPECT_EQ(circles[i].radius, 3);
        EXPECT_EQ(circles[i].pen.width, 1);
        EXPECT_EQ(circles[i].pen.color, (Rgb{1, 2, 3}));
    }
    const auto lines = RecordsOf<PolylineRecord>(plot.list);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].pen.width, 5);
    EXPECT_TRUE(std::holds_alternative<CircleRecord>(plot.list.records.front()));
}

// Points have their own formula: OriginX and ScaleX would put these on the neighbouring pixel.
TEST(FileFunction, PutsItsPointsOnTheirExactPixels) {
    struct Row {
        double low, high;
        std::int32_t size;
        double at;
        std::int32_t pixel;
    };
    const Row columns[] = {
        {1.3, 4.8, 480, 4.1, 384}, {1.1, 5.9, 240, 2.7, 79}, {-10, 10, 200, -10.07, 0}};
    for (const auto& row : columns) {
        FunctionEntry entry = EntryOf({row.at}, {0}, 7);
        PlotOf(entry, MakeViewport(row.low, row.high, -1, 1, row.size, 100));
        EXPECT_EQ(entry.pointPixels[0].column, row.pixel) << row.at;
    }
    const Row rows[] = {
        {0.3, 2.5, 480, 1.4, 239}, {-4.0, -1.5, 100, -3.3, 71}, {-10, 10, 200, 10.07, 0}};
    for (const auto& row : rows) {
        FunctionEntry entry = EntryOf({0}, {row.at}, 7);
        PlotOf(entry, MakeViewport(-1, 1, row.low, row.high, 100, row.size));
        EXPECT_EQ(entry.pointPixels[0].row, row.pixel) << row.at;
    }
}

TEST(FileFunction, LeavesOutCirclesThatCannotBeSeen) {
    const Viewport viewport = MakeViewport(0, 100, 0, 100, 100, 100);
    // Points whose circle misses the picture, points whose circle touches it, and one far away.
    FunctionEntry entry =
        EntryOf({-5, -3, 104, 102, 50, 50, 1e300}, {50, 50, 50, 50, 105, 103, 0}, 7);
    EXPECT_EQ(RecordsOf<CircleRecord>(PlotOf(entry, viewport).list).size(), 3u);
    EXPECT_EQ(entry.pointPixels[0].column, -5);
    EXPECT_EQ(entry.pointPixels[6].column, 2147483647);
    FunctionEntry twice = EntryOf({50, 50.5, 50.25, 51}, {50, 50, 48.9, 50}, 7);
    EXPECT_EQ(RecordsOf<CircleRecord>(PlotOf(twice, viewport).list).size(), 3u);
}

TEST(FileFunction, SamplesOneValuePerColumnBetweenTheBounds) {
    FunctionEntry entry = EntryOf({0, 1, 2}, {0, 1, 4}, 8);
    for (const auto& [low, high] : {std::pair{-0.1, 0.3}, {0.1, 1.7}, {3.0, -1.0}}) {
        const Viewport viewport = MakeViewport(low, high, -10, 10, 237, 100);
        PlotOf(entry, viewport);
        ASSERT_EQ(entry.samples.size(), 237u);
        EXPECT_EQ(entry.samples.front().x, low);
        EXPECT_EQ(entry.samples.back().x, high);
        EXPECT_EQ(entry.samples[100].x, low + 100 * (high - low) / 236);
        for (const CurveSample& sample : entry.samples) {
            const double t = sample.x;
            EXPECT_NEAR(sample.y, t < 1 ? t : 1 + 3 * (t - 1), 1e-14);
            EXPECT_EQ(sample.status, 0);
            EXPECT_EQ(sample.parameter, 0);
            EXPECT_EQ(sample.column, WorldToScreenX(viewport.view, t));
            EXPECT_EQ(sample.row, WorldToScreenY(viewport.view, sample.y));
        }
    }
    PlotOf(entry, MakeViewport(0.2, 7.5, -10, 10));
    EXPECT_EQ(entry.samples[144].x, 4.598326359832637) << "multiplied before it is divided";
    PlotOf(entry, MakeViewport(5, 7, 0, 1, 1, 1));
    ASSERT_EQ(entry.samples.size(), 1u);
    EXPECT_EQ(entry.samples[0].x, 5);
}

// The limit is on the value itself, not on its pixel: the size of the window does not matter.
TEST(FileFunction, DrawsNoValuesOf2To31AndMore) {
    const Viewport viewport = MakeViewport(0, 10, -1e12, 1e12, 11, 100);
    const struct {
        double value;
        bool drawn;
    } rows[] = {{2147483647.0, true},  {2147483647.9, true},   {2147483648.0, false},
                {-2147483647.9, true}, {-2147483648.0, false}, {1e30, false},
                {-1e30, false},        {1e300, false},         {kInfinity, false},
                {-kInfinity, false}};
    for (const auto& row : rows) {
        FunctionEntry entry = EntryOf({5}, {row.value}, 7);
        const Plot plot = PlotOf(entry, viewport);
        EXPECT_EQ(RecordsOf<PolylineRecord>(plot.list).size(), row.drawn ? 1u : 0u) << row.value;
        EXPECT_EQ(entry.samples[3].row, row.drawn ? WorldToScreenY(viewport.view, row.value) : 0);
        const bool hasValue = row.value != 1e30 && std::isfinite(row.value);
        EXPECT_EQ(entry.samples[3].status, hasValue ? 0 : 1000) << row.value;
        EXPECT_EQ(entry.samples[3].y, row.value);
    }
}

TEST(FileFunction, LeavesASampleOutWhoseRightNeighbourHasNoValue) {
    const Viewport viewport = MakeViewport(0, 10, 0, 10, 11, 100);
    FunctionEntry constant = EntryOf({2, 4, 9}, {5, 1e30, 7}, 7);
    PlotOf(constant, viewport);
    const bool plotted[] = {true, true, false, false, false, true, true, true, true, true, true};
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(constant.samples[i].row != 0, plotted[i]) << i;
        EXPECT_EQ(constant.samples[i].status, i == 3 || i == 4 ? 1000 : 0) << i;
    }
}

TEST(FileFunction, WithAFatalConditionKeepsItsPointsOnly) {
    FunctionEntry entry = EntryOf({0, 1, 2, 3}, {0, 1, 2, 3}, 9);
    const Plot plot = PlotOf(entry, MakeViewport(-1, 4, -1, 4));
    ASSERT_TRUE(plot.failure);
    EXPECT_EQ(plot.failure->reason, StringId::QuadraticEven);
    EXPECT_EQ(plot.list.records.size(), 4u);
    ASSERT_EQ(entry.samples.size(), 240u);
    for (const CurveSample& sample : entry.samples) {
        EXPECT_EQ(sample.y, UndefinedValue);
        EXPECT_EQ(sample.status, 1000);
        EXPECT_EQ(sample.column, 0);
        EXPECT_EQ(sample.row, 0);
    }
}

TEST(FileFunction, BreaksItsLineAtAJump) {
    FunctionEntry entry = EntryOf({5, 10}, {0, 600}, 7);
    const Plot plot = PlotOf(entry, MakeViewport(0, 10, 0, 100, 11, 100));
    const auto lines = RecordsOf<PolylineRecord>(plot.list);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].points.size(), 5u);  // the last sample before the jump is dropped
    EXPECT_EQ(lines[1].points.size(), 5u);
}

TEST(FileFunction, SurvivesExtremeWindowsAndPoints) {
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<double> x = {-1e308, -1.0, 0.0, 1e-308, 1.0, 1.0, 1e308, inf, NAN};
    const std::vector<double> y = {1, -1e308, NAN, inf, 0, 3, 1e30, -inf, 2};
    for (const fixtures::Size size : fixtures::kExtremeSizes) {
        for (const auto& [low, high] : fixtures::ExtremeBounds()) {
            for (std::int32_t method = -1; method <= kMethodCount; ++method) {
                FunctionEntry entry = EntryOf(x, y, method);
                PlotOf(entry, MakeViewport(low, high, low, high, std::min(size.width, 300),
                                           std::min(size.height, 300)));
                EXPECT_EQ(entry.samples.size(),
                          static_cast<std::size_t>(std::min(size.width, 300)));
                FunctionEntry empty = EntryOf({}, {}, method);
                EXPECT_TRUE(RecordsOf<CircleRecord>(
                                PlotOf(empty, MakeViewport(low, high, low, high, 9, 9)).list)
                                .empty());
            }
        }
    }
}

TEST(FileFunction, KeepsAMillionPointsCheap) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 1000000; ++i) {
        x.push_back(i * 1e-5 - 5.0);
        y.push_back(std::sin(i * 1e-5));
    }
    FunctionEntry entry = EntryOf(x, y, 11);
    const auto start = std::chrono::steady_clock::now();
    const Plot plot = PlotOf(entry, MakeViewport(-10, 10, -10, 10, 1920, 1080));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_LT(RecordsOf<CircleRecord>(plot.list).size(), 2000u);
    EXPECT_FALSE(plot.failure);
}

TEST(FileFunction, StopsWhenItIsTold) {
    std::vector<double> x;
    for (int i = 0; i < 3000; ++i)
        x.push_back(-std::cos(3.14159 * i / 3000));
    FunctionEntry entry = EntryOf(x, x, 12);
    DrawList list;
    int calls = 0;
    const WorkProgress stop = [&](double done) {
        EXPECT_GE(done, 0.0);
        EXPECT_LE(done, 1.0);
        return ++calls < 2;
    };
    EXPECT_FALSE(plotFileFunction(entry, MakeViewport(-0.95, 0.97, -2, 2), Pen{}, stop, list));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(entry.samples.back().status, 1000);
    EXPECT_FALSE(RecordsOf<CircleRecord>(list).empty());
}

}  // namespace
}  // namespace kalvex
