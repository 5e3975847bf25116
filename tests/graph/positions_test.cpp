// The records of curves hold positions on the true curves.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "graph/curves.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;

/// In logical pixels: what a person can see at eight times the size is larger.
constexpr double kTolerance = 0.02;

Viewport TestViewport() {
    return MakeViewport(-10, 10, -10, 10, 480, 480);
}

/// Positions of the window -10..10 on 480 pixels.
Position At(double x, double y) {
    return {240.0 + 24.0 * x, 240.0 - 24.0 * y};
}

/// Requires the points and the middles of the lines to lie on a curve. `off` gives the distance of
/// a position from it.
void ExpectOn(const std::vector<Position>& points, const std::function<double(Position)>& off) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_LT(off(points[i]), kTolerance) << points[i].x << ' ' << points[i].y;
        if (i == 0) continue;
        const Position middle = {(points[i - 1].x + points[i].x) / 2.0,
                                 (points[i - 1].y + points[i].y) / 2.0};
        EXPECT_LT(off(middle), kTolerance) << middle.x << ' ' << middle.y;
    }
}

std::vector<Position> PointsOf(const DrawList& list) {
    std::vector<Position> points;
    for (const PolylineRecord& line : fixtures::RecordsOf<PolylineRecord>(list))
        points.insert(points.end(), line.points.begin(), line.points.end());
    for (const SegmentsRecord& record : fixtures::RecordsOf<SegmentsRecord>(list)) {
        for (const Segment& segment : record.segments) {
            if (points.empty() || points.back() != segment.from) points.push_back(segment.from);
            points.push_back(segment.to);
        }
    }
    return points;
}

double OffCircle(const Position& at, double radius) {
    return std::fabs(std::hypot(at.x - 240.0, at.y - 240.0) - 24.0 * radius);
}

TEST(Positions, OfDecartLieOnTheCurve) {
    FunctionEntry entry = MakeEntry(EquationType::Decart, u"2*sin(x)");
    DrawList list;
    PlotDecart(entry, TestViewport(), Pen{}, list);
    const std::vector<Position> points = PointsOf(list);
    ASSERT_EQ(points.size(), 480u);
    ExpectOn(points, [](const Position& at) {
        return std::fabs(At(0, 2.0 * std::sin((at.x - 240.0) / 24.0)).y - at.y);
    });
}

TEST(Positions, OfPolarLieOnTheCurve) {
    FunctionEntry entry = MakeEntry(EquationType::Polar, u"4");
    DrawList list;
    PlotPolar(entry, TestViewport(), 1.0, Pen{}, list);
    const std::vector<Position> points = PointsOf(list);
    ASSERT_EQ(points.size(), 180u);
    ExpectOn(points, [](const Position& at) { return OffCircle(at, 4.0); });
}

TEST(Positions, OfParametricLieOnTheCurve) {
    FunctionEntry entry = MakeEntry(EquationType::Parametric, u"7*cos(x)", u"7*sin(x)");
    DrawList list;
    PlotParametric(entry, TestViewport(), 0.0, 6.3, Pen{}, list);
    const std::vector<Position> points = PointsOf(list);
    ASSERT_EQ(points.size(), 480u);
    ExpectOn(points, [](const Position& at) { return OffCircle(at, 7.0); });
}

TEST(Positions, OfFilesLieOnTheCurveAndOnThePoints) {
    FunctionEntry entry = MakeEntry(EquationType::File, u"");
    entry.points = {{-9.97, 0.123, 9.91}, {-3.3, 4.7, 1.01}};
    entry.method.approx = static_cast<std::int32_t>(ApproxMethod::LinearSpline);
    DrawList list;
    EXPECT_FALSE(plotFileFunction(entry, TestViewport(), Pen{}, {}, list));
    const auto circles = fixtures::RecordsOf<CircleRecord>(list);
    ASSERT_EQ(circles.size(), 3u);
    for (std::size_t i = 0; i < circles.size(); ++i) {
        const Position at = At(entry.points.x[i], entry.points.y[i]);
        EXPECT_NEAR(circles[i].centre.x, at.x, 1e-9);
        EXPECT_NEAR(circles[i].centre.y, at.y, 1e-9);
    }
    const auto value = [](double x) {
        return x < 0.123 ? -3.3 + 8.0 * (x + 9.97) / 10.093 : 4.7 - 3.69 * (x - 0.123) / 9.787;
    };
    const std::vector<Position> points = PointsOf(list);
    EXPECT_GT(points.size(), 470u);
    for (const Position& at : points)
        EXPECT_LT(std::fabs(At(0, value((at.x - 240.0) / 24.0)).y - at.y), kTolerance) << at.x;
}

}  // namespace
}  // namespace kalvex
