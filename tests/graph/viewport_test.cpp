#include "graph/viewport.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;

TEST(Viewport, MapsTheStandardWindow) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    const ViewWindow& view = viewport.view;
    EXPECT_EQ(view.OriginX, 120.0);
    EXPECT_EQ(view.OriginY, 134.0);
    EXPECT_EQ(view.ScaleX, 12.0);
    EXPECT_EQ(view.ScaleY, 13.4);
    EXPECT_EQ(view.StepX, 2.0);
    EXPECT_EQ(view.StepY, 2.0);
    // A tenth is taken by multiplication with 0.1; a division by 10 would give 0.3.
    EXPECT_EQ(MakeViewport(0, 3, 0, 3).view.StepX, 0.30000000000000004);
    EXPECT_EQ(MakeViewport(0, 3, 0, 3).view.StepY, 0.30000000000000004);
    const struct {
        double x;
        std::int32_t column;
    } rows[] = {
        {0.0, 120},
        {10.0, 240},
        {-10.0, 0},
        {-11.0, -12},
        {-10.0 - 0.7 / 12.0, 0},
        {-10.0 + 0.7 / 12.0, 0},
        {1e300, INT32_MAX},
        {-1e300, INT32_MIN},
    };
    for (const auto& row : rows)
        EXPECT_EQ(WorldToScreenX(view, row.x), row.column) << row.x;
    const struct {
        double y;
        std::int32_t row;
    } heights[] = {
        {0.0, 134},
        {10.0, 0},
        {-10.0, 268},
        {10.0 + 0.7 / 13.4, 0},
        {10.0 - 0.7 / 13.4, 0},
        {11.0, -13},
        {-11.0, 281},
        {1e300, INT32_MIN},
        {std::numeric_limits<double>::quiet_NaN(), 0},
    };
    for (const auto& row : heights)
        EXPECT_EQ(WorldToScreenY(view, row.y), row.row) << row.y;
}

TEST(Viewport, SpreadsTheWindowOverAllPixels) {
    EXPECT_EQ(MakeViewport(0, 1, 0, 1, 100, 50).view.ScaleX, 100.0);
    EXPECT_EQ(MakeViewport(0, 1, 0, 1, 100, 50).view.ScaleY, 50.0);
    EXPECT_EQ(MakeViewport(0, 0, 0, 1, 100, 50).view.ScaleX,
              std::numeric_limits<double>::infinity());
    EXPECT_EQ(MakeViewport(1, 0, 0, 1, 100, 50).view.ScaleX, -100.0);
}

TEST(Viewport, GivesTheWorldPointOfAPixel) {
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    EXPECT_EQ(ScreenToWorld(viewport, 0, 0).x, -10.0);
    EXPECT_EQ(ScreenToWorld(viewport, 0, 0).y, 10.0);
    EXPECT_EQ(ScreenToWorld(viewport, 240, 268).x, 10.0);
    EXPECT_EQ(ScreenToWorld(viewport, 240, 268).y, -10.0);
    EXPECT_EQ(ScreenToWorld(viewport, 120, 134).x, 0.0);
}

// In each of these windows another order of the operations gives the neighbouring pixel.
TEST(Viewport, PutsTheOriginOnItsExactPixel) {
    const struct {
        double low, high;
        std::int32_t size, column;
    } columns[] = {{-1.6, 3.2, 480, 159}, {-5.1, 0.9, 200, 169}, {-2.3, 10.5, 640, 115}};
    for (const auto& row : columns) {
        const Viewport viewport = MakeViewport(row.low, row.high, -1, 1, row.size, 100);
        EXPECT_EQ(WorldToScreenX(viewport.view, 0.0), row.column) << row.low;
    }
    const struct {
        double low, high;
        std::int32_t size, row;
    } rows[] = {{-0.2, 4.6, 480, 460}, {-5.2, 4.4, 240, 109}, {-0.7, 4.9, 480, 419}};
    for (const auto& row : rows) {
        const Viewport viewport = MakeViewport(-1, 1, row.low, row.high, 100, row.size);
        EXPECT_EQ(WorldToScreenY(viewport.view, 0.0), row.row) << row.low;
    }
}

TEST(Viewport, MapsAPointByOriginAndScale) {
    const struct {
        double low, high;
        std::int32_t size;
        double x;
        std::int32_t column;
    } rows[] = {{-11.2, -7.2, 480, -10.4, 96}, {-5.4, 1.4, 100, -3.7, 24}};
    for (const auto& row : rows) {
        const Viewport viewport = MakeViewport(row.low, row.high, -1, 1, row.size, 100);
        EXPECT_EQ(WorldToScreenX(viewport.view, row.x), row.column) << row.x;
    }
}

// In these windows the world point maps back to the neighbouring pixel, because both mappings
// round. Any other order of the operations would map it back to the pixel itself.
TEST(Viewport, BlendsTheBoundsExactly) {
    struct Row {
        double low, high;
        std::int32_t size, pixel;
        double world;
        std::int32_t mappedBack;
    };
    const Row columns[] = {{-9.1, -6.7, 100, 99, -6.724000000000001, 98},
                           {8.9, 9.3, 240, 98, 9.063333333333333, 97}};
    for (const auto& row : columns) {
        const Viewport viewport = MakeViewport(row.low, row.high, -1, 1, row.size, 100);
        const double x = ScreenToWorld(viewport, row.pixel, 0).x;
        EXPECT_EQ(x, row.world) << row.low;
        EXPECT_EQ(WorldToScreenX(viewport.view, x), row.mappedBack) << row.low;
    }
    const Row rows[] = {{-2.5, 10.3, 300, 170, 3.0466666666666677, 169},
                        {1.0, 1.8, 480, 324, 1.2600000000000002, 323}};
    for (const auto& row : rows) {
        const Viewport viewport = MakeViewport(-1, 1, row.low, row.high, 100, row.size);
        const double y = ScreenToWorld(viewport, 0, row.pixel).y;
        EXPECT_EQ(y, row.world) << row.low;
        EXPECT_EQ(WorldToScreenY(viewport.view, y), row.mappedBack) << row.low;
    }
}

TEST(Viewport, HasSevenQuickWindows) {
    const struct {
        QuickWindow preset;
        double Xmin, Xmax, Ymin, Ymax;
    } rows[] = {
        {QuickWindow::Init, -6.5, 6.5, -3.3, 3.3},
        {QuickWindow::Trig, -9.4245, 9.4245, -1.5, 1.5},
        {QuickWindow::LogX, -0.5, 5.5, -3.75, 2.75},
        {QuickWindow::ExpX, -2.2, 2.2, -0.5, 4.0},
        {QuickWindow::XSquared, -6.5, 6.5, -0.5, 8.0},
        {QuickWindow::MinusXSquared, -6.5, 6.5, -8.0, 0.5},
        {QuickWindow::Standart, -10.0, 10.0, -10.0, 10.0},
    };
    for (const auto& row : rows) {
        Viewport viewport = MakeViewport(1, 2, 3, 4);
        viewport.view.Xfactor = 7.0;
        ApplyQuickWindow(viewport, row.preset);
        EXPECT_EQ(viewport.view.Xmin, row.Xmin);
        EXPECT_EQ(viewport.view.Xmax, row.Xmax);
        EXPECT_EQ(viewport.view.Ymin, row.Ymin);
        EXPECT_EQ(viewport.view.Ymax, row.Ymax);
        EXPECT_EQ(viewport.view.Xfactor, 7.0);
        EXPECT_EQ(viewport.PreviousWindow.Xmin, 1.0);
    }
}

TEST(Viewport, GoesBackOneWindowOnly) {
    Viewport viewport = MakeViewport(1, 2, 3, 4);
    ApplyQuickWindow(viewport, QuickWindow::Init);
    ApplyQuickWindow(viewport, QuickWindow::Trig);
    viewport.view.Xfactor = 9.0;
    for (int again = 0; again < 2; ++again) {
        RestorePrevious(viewport);
        EXPECT_EQ(viewport.view.Xmin, -6.5);
        EXPECT_EQ(viewport.view.Ymax, 3.3);
        EXPECT_EQ(viewport.view.Xfactor, 9.0) << "only the bounds come back";
    }
}

TEST(Viewport, PansWithTheContent) {
    Viewport viewport = MakeViewport(-10, 10, -10, 10, 200, 100);
    PanBy(viewport, 20, 10);
    EXPECT_EQ(viewport.view.Xmin, -12.0);
    EXPECT_EQ(viewport.view.Xmax, 8.0);
    EXPECT_EQ(viewport.view.Ymin, -8.0);
    EXPECT_EQ(viewport.view.Ymax, 12.0);
    PanBy(viewport, INT32_MIN, INT32_MIN);
    EXPECT_TRUE(std::isfinite(viewport.view.Xmin));
}

TEST(Viewport, RefusesAPanWithoutAResult) {
    Viewport viewport = MakeViewport(5, 5, -10, 10, 0, 0);
    PanBy(viewport, 3, 3);
    EXPECT_EQ(viewport.view.Ymin, -10.0);
    for (const auto& [low, high] : fixtures::ExtremeBounds()) {
        Viewport extreme = MakeViewport(low, high, low, high);
        PanBy(extreme, 3, -3);
        LayoutViewport(extreme, 240, 268);
        EXPECT_EQ(std::isfinite(extreme.view.Xmin), std::isfinite(low)) << low << ' ' << high;
    }
}

}  // namespace
}  // namespace kalvex
