#include "painter/page.h"

#include <gtest/gtest.h>

#include <QImage>
#include <cmath>

namespace kalvex {
namespace {

TEST(PlaceOnPage, KeepsProportionsOrFills) {
    const struct {
        QSizeF picture;
        QSizeF room;
        PageFit fit;
        QRectF place;
    } rows[] = {
        {{100, 100}, {400, 600}, PageFit::Inside, {0, 100, 400, 400}},
        {{200, 100}, {400, 600}, PageFit::Inside, {0, 200, 400, 200}},
        {{100, 200}, {600, 400}, PageFit::Inside, {200, 0, 200, 400}},
        {{4000, 6000}, {400, 600}, PageFit::Inside, {0, 0, 400, 600}},
        {{200, 100}, {400, 600}, PageFit::Stretched, {0, 0, 400, 600}},
    };
    for (const auto& row : rows) {
        const QRectF place = PlaceOnPage(row.picture, row.room, row.fit);
        EXPECT_EQ(place, row.place) << row.picture.width() << ' ' << row.picture.height();
    }
}

TEST(SizeForPage, HasTheProportionsOfThePageAndAsManyPixels) {
    const struct {
        QSize seen;
        QSizeF room;
    } rows[] = {
        {{480, 568}, {4000, 6000}}, {{1280, 748}, {6000, 4000}}, {{1920, 1028}, {500, 500}}};
    for (const auto& row : rows) {
        const QSize size = SizeForPage(row.seen, row.room);
        const double pixels = static_cast<double>(row.seen.width()) * row.seen.height();
        EXPECT_NEAR(size.width() * static_cast<double>(size.height()) / pixels, 1.0, 0.005);
        EXPECT_NEAR(static_cast<double>(size.width()) / size.height(),
                    row.room.width() / row.room.height(), 0.005);
    }
    EXPECT_EQ(SizeForPage({1, 1}, {1000, 1}), QSize(32, 1));
}

/// The pixels that are not white, as a rectangle.
QRect PaintedPart(const QImage& page) {
    QRect part;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (page.pixelColor(x, y) != Qt::white) part |= QRect(x, y, 1, 1);
    return part;
}

/// A picture that is painted up to its edges and reaches far beyond them.
DrawList Covered(std::int32_t width, std::int32_t height) {
    const double y = height / 2.0;
    return {width, height, {SegmentsRecord{Pen{{0, 0, 0}, 2 * height}, {{{-1e6, y}, {1e6, y}}}}}};
}

TEST(PaintPage, PaintsInItsPlaceOnly) {
    const struct {
        QSize page;
        PageFit fit;
        QRect part;
    } rows[] = {{{400, 600}, PageFit::Inside, {0, 200, 400, 200}},
                {{600, 100}, PageFit::Inside, {200, 0, 200, 100}},
                {{400, 600}, PageFit::Stretched, {0, 0, 400, 600}}};
    for (const auto& row : rows) {
        QImage page(row.page, QImage::Format_RGB32);
        page.fill(Qt::white);
        ASSERT_TRUE(PaintPage(page, Covered(200, 100), row.fit));
        EXPECT_EQ(PaintedPart(page), row.part) << row.page.width() << 'x' << row.page.height();
    }
}

TEST(PaintPage, FailsWithoutAPictureOrAPage) {
    QImage page(10, 10, QImage::Format_RGB32);
    EXPECT_FALSE(PaintPage(page, {0, 10, {}}, PageFit::Inside));
    EXPECT_FALSE(PaintPage(page, {10, -1, {}}, PageFit::Stretched));
    QImage none;
    EXPECT_FALSE(PaintPage(none, {10, 10, {}}, PageFit::Inside));
}

}  // namespace
}  // namespace kalvex
