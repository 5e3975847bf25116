#include "painter/painter.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <chrono>
#include <vector>

namespace kalvex {
namespace {

constexpr Rgb kRed = {255, 0, 0};

DrawList ListOf(std::int32_t width, std::int32_t height, std::vector<DrawRecord> records) {
    return {width, height, std::move(records)};
}

/// The picture as text: one character per pixel.
std::vector<std::string> RowsOf(const QImage& picture) {
    std::vector<std::string> rows;
    for (int y = 0; y < picture.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y) & 0xFFFFFF;
            rows.back() += pixel == 0xFFFFFF ? '.' : pixel == 0xFF0000 ? 'r' : '#';
        }
    }
    return rows;
}

using Rows = std::vector<std::string>;

TEST(Painter, PaintsExactLines) {
    const Pen pen{kRed, 1};
    const struct {
        Segment segment;
        Rows rows;
    } cases[] = {
        {{{1, 1}, {3, 1}}, {".....", ".rrr.", ".....", "....."}},
        {{{1, 2}, {1, 1}}, {".....", ".r...", ".r...", "....."}},
        {{{0, 0}, {3, 3}}, {"r....", ".r...", "..r..", "...r."}},
        {{{2, -2147483647 - 1}, {2, 2147483647}}, {"..r..", "..r..", "..r..", "..r.."}},
        {{{-2147483647 - 1, 3}, {2147483647, 3}}, {".....", ".....", ".....", "rrrrr"}},
        {{{2147483647, 3}, {2147483647, -9}}, {".....", ".....", ".....", "....."}},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(RowsOf(PaintPicture(ListOf(5, 4, {SegmentsRecord{pen, {one.segment}}}))),
                  one.rows);
        const PolylineRecord line{pen, {one.segment.from, one.segment.to}};
        EXPECT_EQ(RowsOf(PaintPicture(ListOf(5, 4, {line}))), one.rows);
    }
}

TEST(Painter, KeepsTheSlopeOfVeryLongLines) {
    const Segment diagonal{{-1000000000, -1000000000}, {1000000000, 1000000000}};
    const QImage picture =
        PaintPicture(ListOf(100, 100, {SegmentsRecord{Pen{kRed, 1}, {diagonal}}}));
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(picture.pixel(i, i), qRgb(255, 0, 0)) << i;
}

TEST(Painter, LeavesNoGapsInWidePolylines) {
    const PolylineRecord line{Pen{kRed, 3}, {{5, 15}, {6, 5}, {7, 15}, {15, 15}}};
    const QImage picture = PaintPicture(ListOf(20, 20, {line}));
    for (const Position& point : line.points)
        EXPECT_EQ(picture.pixel(point.x, point.y), qRgb(255, 0, 0)) << point.x;
    for (int x = 7; x <= 15; ++x)
        EXPECT_EQ(picture.pixel(x, 15), qRgb(255, 0, 0)) << x;
}

TEST(Painter, PlaysPixelRunsAlikeOnEveryDevice) {
    const PixelRunsRecord runs{kRed, {{0, 1, 2}, {2, -3, 5}, {3, 3, 99}, {-1, 0, 5}, {4, 0, 5}}};
    const Rows expected = {".rr..", ".....", "rr...", "...rr"};
    EXPECT_EQ(RowsOf(PaintPicture(ListOf(5, 4, {runs}))), expected);
    QImage other(5, 4, QImage::Format_ARGB32_Premultiplied);
    other.fill(Qt::white);
    {
        QPainter painter(&other);
        PlayDrawList(painter, ListOf(5, 4, {runs}));
    }
    EXPECT_EQ(RowsOf(other), expected);
    const QImage twice = PaintPicture(ListOf(5, 4, {runs}), 2.0);
    EXPECT_EQ(twice.width(), 10);
    EXPECT_EQ(RowsOf(twice)[0], "..rrrr....");
    EXPECT_EQ(RowsOf(twice)[1], "..rrrr....");
    EXPECT_EQ(RowsOf(PaintPicture(ListOf(5, 4, {runs}), 1.5)).size(), 6u);
}

TEST(Painter, MixesDirectPixelsAndPaintedOnesInOrder) {
    const PixelRunsRecord runs{kRed, {{1, 0, 5}}};
    const SegmentsRecord black{Pen{{0, 0, 0}, 1}, {{{2, 0}, {2, 3}}}};
    EXPECT_EQ(RowsOf(PaintPicture(ListOf(5, 3, {runs, black})))[1], "rr#rr");
    EXPECT_EQ(RowsOf(PaintPicture(ListOf(5, 3, {black, runs})))[1], "rrrrr");
}

TEST(Painter, WritesTextsInTheirBox) {
    const MeasureText measure = PainterTextMeasure();
    const TextExtent extent = measure(u"MMM", 20);
    const QImage picture = PaintPicture(ListOf(200, 60, {TextRecord{30, 10, u"MMM", kRed, 20}}));
    int inside = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 200; ++x) {
            if ((picture.pixel(x, y) & 0xFFFFFF) == 0xFFFFFF) continue;
            ++inside;
            EXPECT_GE(x, 29);
            EXPECT_LE(x, 31 + extent.width);
            EXPECT_GE(y, 10);
            EXPECT_LT(y, 10 + extent.height);
        }
    EXPECT_GT(inside, 50) << "a font is there";
}

TEST(Painter, GivesANullPictureForNoSize) {
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, -1}, {0, 0}})
        EXPECT_TRUE(PaintPicture(ListOf(width, height, {})).isNull());
    const QImage picture = PaintPicture(ListOf(5, 4, {}), 2.0);
    EXPECT_EQ(picture.devicePixelRatio(), 2.0);
    EXPECT_EQ(picture.format(), QImage::Format_RGB32);
    EXPECT_EQ(RowsOf(picture), Rows(8, ".........."));
    EXPECT_EQ(PaintPicture(ListOf(5, 4, {}), std::numeric_limits<double>::quiet_NaN()).width(), 5);
}

TEST(Painter, IsQuickOnSteepLines) {
    PolylineRecord line{Pen{kRed, 5}, {}};
    for (std::int32_t x = 0; x < 1920; ++x)
        line.points.push_back({1.0 * x, x % 2 == 0 ? -1e300 : 1e300});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(PaintPicture(ListOf(1920, 1080, {line})).isNull());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace kalvex
