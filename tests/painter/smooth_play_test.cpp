#include "painter/smooth_play.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>

#include "painter/painter.h"

namespace kalvex {
namespace {

constexpr Rgb kRed = {255, 0, 0};
constexpr QRgb kWhite = 0xFFFFFFFF;

QImage Smooth(const DrawList& list, double ratio = 1.0) {
    return PaintPicture(list, ratio, Playing::Smooth);
}

SegmentsRecord AxisAt(double x, double y) {
    return {Pen{{0, 0, 0}, 1}, {{{x, 0}, {x, 60}}, {{0, y}, {80, y}}}, {DrawLayer::Axes}};
}

/// The columns of a row that are not white.
std::vector<int> Columns(const QImage& image, int row) {
    std::vector<int> columns;
    for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, row) != kWhite) columns.push_back(x);
    return columns;
}

TEST(SmoothPlay, PutsHairlinesOnWholeDevicePixels) {
    const struct {
        double ratio;
        double x;
        std::vector<int> columns;
    } rows[] = {
        {1.0, 0.0, {0}},   {2.0, 0.5, {0, 1}},           {1.0, 40.0, {40}},     {1.0, 40.4, {40}},
        {1.0, 40.9, {40}}, {2.0, 40.0, {79, 80}},        {2.0, 40.3, {80, 81}}, {1.25, 40.0, {50}},
        {1.5, 40.0, {60}}, {3.0, 40.0, {119, 120, 121}},
    };
    for (const auto& row : rows) {
        const QImage image = Smooth({80, 60, {AxisAt(row.x, 70)}}, row.ratio);
        const std::vector<int> columns = Columns(image, 10);
        EXPECT_EQ(columns, row.columns) << row.ratio << ' ' << row.x;
        for (const int column : columns)
            EXPECT_EQ(image.pixel(column, 10), 0xFF000000) << "no soft edge";
    }
}

TEST(SmoothPlay, KeepsThePositionsOfCurves) {
    // A flat line at 20.25: three quarters of row 20 and a quarter of row 19.
    const PolylineRecord line{Pen{kRed, 1}, {{5, 20.25}, {70, 20.25}}};
    const QImage image = Smooth({80, 60, {line}});
    EXPECT_NEAR(qGreen(image.pixel(30, 19)), 191, 1);
    EXPECT_NEAR(qGreen(image.pixel(30, 20)), 64, 1);
    EXPECT_EQ(image.pixel(30, 18), kWhite);
    EXPECT_EQ(image.pixel(30, 21), kWhite);
}

TEST(SmoothPlay, WidthsAreLogicalPixelsAtEveryRatio) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const PolylineRecord line{Pen{kRed, 2}, {{5, 20.3}, {70, 20.3}}};
        const QImage image = Smooth({80, 60, {line}}, ratio);
        double covered = 0.0;
        for (int y = 0; y < image.height(); ++y)
            covered += (255 - qGreen(image.pixel(image.width() / 2, y))) / 255.0;
        EXPECT_NEAR(covered, 2.0 * ratio, 0.02) << ratio;
    }
}

TEST(SmoothPlay, ShrinksThePictureBelowRatioOne) {
    const PolylineRecord diagonal{Pen{kRed, 4}, {{0, 0}, {80, 60}}};
    for (const Playing playing : {Playing::Smooth, Playing::Classic}) {
        for (const double ratio : {0.25, 0.5}) {
            const QImage image = PaintPicture({80, 60, {diagonal}}, ratio, playing);
            EXPECT_EQ(image.size(),
                      QSize(static_cast<int>(80 * ratio), static_cast<int>(60 * ratio)));
            EXPECT_LT(qGreen(image.pixel(image.width() - 1, image.height() - 1)), 128) << ratio;
            EXPECT_EQ(image.devicePixelRatio(), ratio);
        }
    }
    EXPECT_EQ(Smooth({1, 1, {}}, 0.25).size(), QSize(1, 1));
}

TEST(SmoothPlay, LeavesOutWhatHasNoPosition) {
    const double none = std::nan("");
    const CircleRecord circle{Pen{kRed, 1}, {none, 20}, 3};
    const PolylineRecord line{Pen{kRed, 1}, {{none, 20}, {30, none}, {1e300, -1e300}}};
    PixelRunsRecord curve{kRed, {}};
    curve.contours = Contours{{{none, none}, {1e300, 5}}, {1, 2}, {}};
    EXPECT_EQ(Smooth({80, 60, {circle, line, curve}}), Smooth({80, 60, {}}));
}

/// The distance from the middle says whether a pixel is in the ring of a wide pen.
TEST(SmoothPlay, WidePensAreRound) {
    constexpr double kRadius = 60.0;
    constexpr double kWidth = 20.0;
    SegmentsRecord circle{Pen{kRed, 20}, {}};
    const auto at = [](int i) {
        const double angle = i * 3.14159265358979 / 90.0;
        return Position{80.0 + kRadius * std::cos(angle), 80.0 + kRadius * std::sin(angle)};
    };
    for (int i = 0; i < 180; ++i)
        circle.segments.push_back({at(i), at(i + 1)});
    const QImage image = Smooth({160, 160, {circle}});
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 160; ++x) {
            const double off = std::fabs(std::hypot(x + 0.5 - 80.0, y + 0.5 - 80.0) - kRadius);
            const double covered = std::clamp(0.5 + kWidth / 2.0 - off, 0.0, 1.0);
            ASSERT_NEAR(qGreen(image.pixel(x, y)), 255.0 * (1.0 - covered), 40) << x << ' ' << y;
        }
}

TEST(SmoothPlay, MergesPointsOnOneLineOnly) {
    // A thousand points along a parabola and its chords of one pixel each look alike.
    PolylineRecord fine{Pen{kRed, 2}, {}};
    SegmentsRecord pieces{Pen{kRed, 2}, {}};
    const auto at = [](int i) { return Position{i * 0.08, 10.0 + i * i * 4e-5}; };
    for (int i = 0; i < 1000; ++i) {
        fine.points.push_back(at(i));
        if (i > 0) pieces.segments.push_back({at(i - 1), at(i)});
    }
    const QImage a = Smooth({80, 60, {fine}});
    const QImage b = Smooth({80, 60, {pieces}});
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 78; ++x)  // the ends differ a little
            ASSERT_NEAR(qGreen(a.pixel(x, y)), qGreen(b.pixel(x, y)), 25) << x << ' ' << y;
}

TEST(SmoothPlay, DrawsContoursInPlaceOfPixels) {
    PixelRunsRecord curve{kRed, {{20, 10, 30}}};
    EXPECT_EQ(Smooth({80, 60, {curve}}).pixel(15, 20), 0xFFFF0000) << "there are no contours";
    curve.contours = Contours{{{10, 40.5}, {60, 40.5}, {30, 50.5}}, {2, 3}, {{5, 2, 3}}};
    const QImage image = Smooth({80, 60, {curve}});
    EXPECT_EQ(image.pixel(15, 20), kWhite);
    EXPECT_EQ(image.pixel(15, 40), 0xFFFF0000);
    EXPECT_EQ(image.pixel(3, 5), 0xFFFF0000) << "a filled pixel";
    EXPECT_NE(image.pixel(30, 50), kWhite) << "a single point";
}

TEST(SmoothPlay, NumbersStandAboveCurvesAndClearOfNames) {
    const TextRecord number{30, 20, u"888", {0, 0, 0}, 20, {DrawLayer::Numbers}};
    const PolylineRecord line{Pen{kRed, 9}, {{0, 30}, {80, 30}}};
    const auto blackPixels = [](const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == 0xFF000000;
        return count;
    };
    const int alone = blackPixels(Smooth({80, 60, {number}}));
    EXPECT_GT(alone, 20);
    EXPECT_EQ(blackPixels(Smooth({80, 60, {number, line}})), alone) << "the curve is below";
    TextRecord covered = number;
    covered.covered = true;
    EXPECT_EQ(blackPixels(Smooth({80, 60, {covered}})), 0);
    EXPECT_EQ(blackPixels(PaintPicture({80, 60, {covered}})), alone) << "classic pictures have it";
}

}  // namespace
}  // namespace kalvex
