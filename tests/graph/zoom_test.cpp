#include "graph/zoom.h"

#include <gtest/gtest.h>

#include <cmath>

#include "graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeViewport;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

void ExpectBounds(const Viewport& viewport, double xmin, double xmax, double ymin, double ymax) {
    EXPECT_EQ(viewport.view.Xmin, xmin);
    EXPECT_EQ(viewport.view.Xmax, xmax);
    EXPECT_EQ(viewport.view.Ymin, ymin);
    EXPECT_EQ(viewport.view.Ymax, ymax);
}

TEST(ZoomAbout, UsesTheFactors) {
    Viewport viewport = MakeViewport(-10, 10, -10, 10);
    ZoomAbout(viewport, {0, 0}, ZoomDirection::In);
    ExpectBounds(viewport, -5, 5, -5, 5);
    viewport = MakeViewport(-10, 10, -10, 10);
    ZoomAbout(viewport, {0, 0}, ZoomDirection::Out);
    ExpectBounds(viewport, -20, 20, -20, 20);
    viewport = MakeViewport(-10, 10, -4, 4);
    viewport.view.Xfactor = 4;
    viewport.view.Yfactor = 0.5;
    ZoomAbout(viewport, {3, -1}, ZoomDirection::In);
    ExpectBounds(viewport, 0.5, 5.5, -9, 7);
    ZoomAbout(viewport, {3, -1}, ZoomDirection::Out);
    ExpectBounds(viewport, -7, 13, -5, 3);
}

TEST(ZoomAbout, KeepsAMirroredPictureMirrored) {
    Viewport viewport = MakeViewport(10, -10, 10, -10);
    ZoomAbout(viewport, {0, 0}, ZoomDirection::In);
    ExpectBounds(viewport, 5, -5, 5, -5);
}

// KEEP: a factor of 0 gives infinite bounds.
TEST(ZoomAbout, UsesADamagedFactorAsItIs) {
    Viewport viewport = MakeViewport(-10, 10, -10, 10);
    viewport.view.Xfactor = 0;
    ZoomAbout(viewport, {0, 0}, ZoomDirection::In);
    ExpectBounds(viewport, -kInfinity, kInfinity, -5, 5);
    viewport = MakeViewport(-10, 10, -10, 10);
    viewport.view.Yfactor = -2;
    ZoomAbout(viewport, {0, 0}, ZoomDirection::Out);
    ExpectBounds(viewport, -20, 20, 20, -20);
}

TEST(ZoomAbout, StopsWhereDoublesEndAndComesBack) {
    for (const ZoomDirection first : {ZoomDirection::In, ZoomDirection::Out}) {
        const ZoomDirection second =
            first == ZoomDirection::In ? ZoomDirection::Out : ZoomDirection::In;
        for (const double centre : {0.0, 1.0, -1e300, 1e-300}) {
            Viewport viewport = MakeViewport(centre - 1.0, centre + 10.0, -10, 10);
            viewport.view.Xmax = std::max(viewport.view.Xmax, std::nextafter(centre, kInfinity));
            for (const ZoomDirection direction : {first, second}) {
                for (int i = 0; i < 10'000; ++i) {
                    ZoomAbout(viewport, {centre, 0}, direction);
                    const ViewWindow& view = viewport.view;
                    ASSERT_TRUE(std::isfinite(view.Xmin) && std::isfinite(view.Xmax));
                    ASSERT_NE(view.Xmin, view.Xmax);
                    ASSERT_LT(view.Ymin, view.Ymax);
                }
            }
        }
    }
}

TEST(ZoomToBox, SortsTheCorners) {
    Viewport viewport = MakeViewport(-10, 10, -10, 10);
    EXPECT_TRUE(ZoomToBox(viewport, {4, -3}, {-1, 2}));
    ExpectBounds(viewport, -1, 4, -3, 2);
}

TEST(ZoomToBox, RefusesWhatIsNoBox) {
    const std::pair<WorldPoint, WorldPoint> rows[] = {
        {{1, 2}, {1, 3}},    {{1, 2}, {3, 2}},         {{1, 2}, {1, 2}},
        {{0, 0}, {-0.0, 1}}, {{0, 0}, {kInfinity, 1}}, {{kNan, 0}, {1, 1}},
    };
    for (const auto& [first, second] : rows) {
        Viewport viewport = MakeViewport(-10, 10, -10, 10);
        EXPECT_FALSE(ZoomToBox(viewport, first, second));
        ExpectBounds(viewport, -10, 10, -10, 10);
    }
}

TEST(ZoomAtPixel, LeavesThePointWhereItIs) {
    Viewport viewport = MakeViewport(-10, 10, -5, 15, 400, 200);
    const WorldPoint before = ScreenToWorld(viewport, 100, 50);
    ZoomAtPixel(viewport, {100, 50}, 0.5, 2.0);
    const WorldPoint after = ScreenToWorld(viewport, 100, 50);
    EXPECT_NEAR(after.x, before.x, 1e-14);
    EXPECT_NEAR(after.y, before.y, 1e-13);
    EXPECT_EQ(viewport.view.Xmax - viewport.view.Xmin, 10.0);
    EXPECT_EQ(viewport.view.Ymax - viewport.view.Ymin, 40.0);
}

TEST(ZoomAtPixel, LeavesAnAxisAloneWithoutAnExtent) {
    Viewport viewport = MakeViewport(0.1, 0.3, 0.7, 1.1, 333, 217);
    ZoomAtPixel(viewport, {17, 31}, 1.0, 0.5);
    EXPECT_EQ(viewport.view.Xmin, 0.1);
    EXPECT_EQ(viewport.view.Xmax, 0.3);
    EXPECT_NE(viewport.view.Ymin, 0.7);
}

TEST(ZoomAtPixel, SurvivesEveryWindow) {
    for (const auto& [low, high] : fixtures::ExtremeBounds()) {
        for (const auto& size : fixtures::kExtremeSizes) {
            Viewport viewport = MakeViewport(low, high, low, high, size.width, size.height);
            for (const double extent : {0.8, 1.25, 0.0, kInfinity, kNan})
                ZoomAtPixel(viewport, {3, -7}, extent, extent);
            ZoomAbout(viewport, ScreenToWorld(viewport, 1, 1), ZoomDirection::In);
            const bool usable = std::isfinite(low) && std::isfinite(high) && low != high;
            if (!usable) continue;
            EXPECT_TRUE(std::isfinite(viewport.view.Xmin) && std::isfinite(viewport.view.Xmax));
            EXPECT_NE(viewport.view.Xmin, viewport.view.Xmax);
        }
    }
}

TEST(MiddleOf, IsAWholePixel) {
    EXPECT_EQ(MiddleOf(MakeViewport(0, 1, 0, 1, 241, 268)), (PixelPoint{120, 134}));
}

}  // namespace
}  // namespace kalvex
