#include "painter/ellipse.h"

#include <gtest/gtest.h>

#include <chrono>

#include "painter/painter.h"

namespace kalvex {
namespace {

constexpr Rgb kGrey = {130, 130, 130};
constexpr Rgb kWhite = {255, 255, 255};

EllipseRecord Ring(double left, double top, double right, double bottom) {
    return {Pen{kGrey, 1}, true, kWhite, left, top, right, bottom};
}

bool IsGrey(const QImage& picture, int x, int y) {
    return picture.pixel(x, y) == qRgb(130, 130, 130);
}

TEST(Ellipse, TouchesItsBox) {
    const QImage picture = PaintPicture({40, 30, {Ring(5, 5, 35, 25)}});
    EXPECT_TRUE(IsGrey(picture, 5, 15));
    EXPECT_TRUE(IsGrey(picture, 35, 15));
    EXPECT_TRUE(IsGrey(picture, 20, 5));
    EXPECT_TRUE(IsGrey(picture, 20, 25));
    EXPECT_FALSE(IsGrey(picture, 20, 15));
    EXPECT_FALSE(IsGrey(picture, 4, 15));
}

TEST(Ellipse, CoversWhatIsInside) {
    const EllipseRecord inner{Pen{kGrey, 1}, true, kWhite, 10, 10, 30, 20};
    const SegmentsRecord line{Pen{{0, 0, 0}, 1}, {{{0, 15}, {39, 15}}}};
    const QImage picture = PaintPicture({40, 30, {Ring(5, 5, 35, 25), line, inner}});
    EXPECT_EQ(picture.pixel(20, 15), qRgb(255, 255, 255)) << "a record in between is covered";
    EXPECT_EQ(picture.pixel(7, 15), qRgb(0, 0, 0));
}

TEST(Ellipse, SkipsOnlyAFillThatChangesNothing) {
    DrawList nested{300, 300, {}};
    DrawList separate{300, 300, {}};
    const EllipseRecord off{Pen{kWhite, 1}, true, {1, 2, 3}, 500, 500, 510, 510};
    for (std::int32_t k = 20; k >= 1; --k) {
        nested.records.emplace_back(Ring(150 - 7 * k, 150 - k, 150 + 7 * k, 150 + k));
        separate.records.emplace_back(nested.records.back());
        separate.records.emplace_back(off);
    }
    EXPECT_EQ(PaintPicture(nested), PaintPicture(separate)) << "20 rings, with and without";
}

TEST(Ellipse, FarBeyondThePictureIsItsArc) {
    // A circle of radius 10^9 whose right end is column 50: a vertical line.
    const QImage circle = PaintPicture({100, 80, {Ring(-1999999950, -999999960, 50, 1000000040)}});
    for (int y = 0; y < 80; ++y) {
        EXPECT_TRUE(IsGrey(circle, 50, y)) << y;
        EXPECT_FALSE(IsGrey(circle, 48, y));
        EXPECT_FALSE(IsGrey(circle, 52, y));
    }
    // Slightly above the limit of the raster engine: the height of the arc must follow the formula.
    const QImage large = PaintPicture({100, 200, {Ring(-20000, 0, 20100, 40100)}});
    EXPECT_TRUE(IsGrey(large, 50, 0));
    const QImage corners =
        PaintPicture({100, 80, {Ring(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX)}});
    EXPECT_FALSE(IsGrey(corners, 50, 40));
}

TEST(Ellipse, ManyRingsAreQuick) {
    DrawList list{1920, 1080, {}};
    for (std::int32_t k = 1100; k >= 1; --k)
        list.records.emplace_back(Ring(960 - k, 540 - k, 960 + k, 540 + k));
    const auto start = std::chrono::steady_clock::now();
    static_cast<void>(PaintPicture(list));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

}  // namespace
}  // namespace kalvex
