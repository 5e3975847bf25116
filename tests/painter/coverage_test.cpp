#include "painter/coverage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace kalvex {
namespace {

constexpr std::int32_t kWidth = 90;
constexpr std::int32_t kHeight = 70;

struct Line {
    double x0, y0, x1, y1;
};

double DistanceTo(const Line& line, double x, double y) {
    const double dx = line.x1 - line.x0;
    const double dy = line.y1 - line.y0;
    const double squared = dx * dx + dy * dy;
    const double along = squared > 0 ? ((x - line.x0) * dx + (y - line.y0) * dy) / squared : 0.0;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(x - line.x0 - t * dx, y - line.y0 - t * dy);
}

/// The part of a pixel that a line with round ends covers, from 32 x 32 points in it.
double TruePart(const Line& line, double penWidth, std::int32_t column, std::int32_t row) {
    constexpr int kPoints = 32;
    int inside = 0;
    for (int i = 0; i < kPoints; ++i)
        for (int j = 0; j < kPoints; ++j)
            inside += DistanceTo(line, column + (i + 0.5) / kPoints, row + (j + 0.5) / kPoints) <=
                      penWidth / 2.0;
    return static_cast<double>(inside) / (kPoints * kPoints);
}

double PartAt(const CoverageMask& mask, std::int32_t column, std::int32_t row) {
    return mask.parts[static_cast<std::size_t>(row) * kWidth + static_cast<std::size_t>(column)] /
           255.0;
}

/// The largest difference between what is noted and the true part.
double WorstOf(const CoverageMask& mask, const Line& line, double penWidth) {
    double worst = 0.0;
    for (std::int32_t row = 0; row < kHeight; ++row)
        for (std::int32_t column = 0; column < kWidth; ++column) {
            const double part = PartAt(mask, column, row);
            const double far = DistanceTo(line, column + 0.5, row + 0.5) - penWidth / 2.0;
            if (far > 1.0) {
                EXPECT_EQ(part, 0.0) << column << ' ' << row;
            } else if (far < -1.0) {
                EXPECT_EQ(part, 1.0) << column << ' ' << row;
            } else {
                worst = std::max(worst, std::fabs(part - TruePart(line, penWidth, column, row)));
            }
        }
    return worst;
}

TEST(Coverage, IsNearTheTrueArea) {
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> place(-20.0, 110.0);
    std::uniform_real_distribution<double> small(-2.0, 2.0);
    for (int i = 0; i < 60; ++i) {
        for (const double penWidth : {1.0, 1.25, 2.0, 4.0, 9.0}) {
            Line line{place(random), place(random), place(random), place(random)};
            if (i % 3 == 0)
                line = {line.x0, line.y0, line.x0 + small(random), line.y0 + small(random)};
            if (i % 7 == 0) line.y1 = line.y0;
            if (i % 11 == 0) line.x1 = line.x0;
            CoverageMask mask = MakeCoverageMask(kWidth, kHeight);
            CoverLine(mask, {line.x0, line.y0, line.x1, line.y1}, penWidth);
            EXPECT_LT(WorstOf(mask, line, penWidth), 0.16)
                << line.x0 << ',' << line.y0 << ' ' << line.x1 << ',' << line.y1 << ' ' << penWidth;
        }
    }
}

TEST(Coverage, JoinedLinesShowNoSeam) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(0.0, 6.28);
    for (int i = 0; i < 40; ++i) {
        const double direction = angle(random);
        const double dx = 12.0 * std::cos(direction);
        const double dy = 12.0 * std::sin(direction);
        const double x = 45.0;
        const double y = 35.0;
        CoverageMask whole = MakeCoverageMask(kWidth, kHeight);
        CoverLine(whole, {x - dx, y - dy, x + dx, y + dy}, 3.0);
        CoverageMask pieces = MakeCoverageMask(kWidth, kHeight);
        ASSERT_TRUE(MayBeJoined({x - dx, y - dy, x, y}, {x, y, x + dx, y + dy}, 3.0));
        CoverLine(pieces, {x - dx, y - dy, x, y}, 3.0, {false, true});
        CoverLine(pieces, {x, y, x + dx, y + dy}, 3.0, {true, false});
        for (std::size_t k = 0; k < whole.parts.size(); ++k)
            ASSERT_NEAR(whole.parts[k], pieces.parts[k], 1) << direction << ' ' << k;
    }
    EXPECT_FALSE(MayBeJoined({0, 0, 10, 0}, {10, 0, 20, 2}, 1.0)) << "a turn";
    EXPECT_FALSE(MayBeJoined({0, 0, 10, 0}, {10, 0, 0, 0}, 1.0)) << "back";
    EXPECT_FALSE(MayBeJoined({0, 0, 10, 9.9}, {10, 9.9, 20, 20}, 1.0))
        << "another longer direction";
    EXPECT_TRUE(MayBeJoined({0, 0, 2, 0}, {2, 0, 4, 0.1}, 2.0));
    EXPECT_FALSE(MayBeJoined({0, 0, 2, 0}, {2, 0, 4, 0.1}, 20.0)) << "a wide pen shows the turn";
    EXPECT_FALSE(MayBeJoined({0, 0, 0, 0}, {0, 0, 5, 5}, 1.0)) << "a point has no direction";
}

TEST(Coverage, HasCircles) {
    CoverageMask mask = MakeCoverageMask(kWidth, kHeight);
    CoverCircle(mask, 40.3, 30.8, 10.0, 1.0);
    for (std::int32_t row = 0; row < kHeight; ++row)
        for (std::int32_t column = 0; column < kWidth; ++column) {
            const double distance =
                std::fabs(std::hypot(column + 0.5 - 40.3, row + 0.5 - 30.8) - 10.0);
            EXPECT_NEAR(PartAt(mask, column, row), std::clamp(1.0 - distance, 0.0, 1.0), 0.004);
        }
}

TEST(Coverage, PaintsOnceAndForgets) {
    CoverageMask mask = MakeCoverageMask(kWidth, kHeight);
    std::vector<std::uint32_t> pixels(kWidth * kHeight, 0xFFFFFFFF);
    CoverLine(mask, {3.0, 10.5, 87.0, 10.5}, 1.0);
    CoverLine(mask, {40.25, -5.0, 40.25, 100.0}, 1.0);
    PaintCovered(mask, 0x204060, pixels.data(), kWidth);
    EXPECT_EQ(pixels[10 * kWidth + 50], 0xFF204060);
    EXPECT_EQ(pixels[11 * kWidth + 50], 0xFFFFFFFF);
    // A quarter of column 39 and three quarters of column 40.
    EXPECT_EQ(pixels[60 * kWidth + 39], 0xFFC7CFD7);
    EXPECT_EQ(pixels[60 * kWidth + 40], 0xFF587088);
    const std::vector<std::uint32_t> before = pixels;
    PaintCovered(mask, 0, pixels.data(), kWidth);
    EXPECT_EQ(pixels, before);
    EXPECT_TRUE(std::ranges::all_of(mask.parts, [](std::uint8_t part) { return part == 0; }));
    EXPECT_TRUE(std::ranges::all_of(mask.touched, [](std::uint8_t part) { return part == 0; }));
}

TEST(Coverage, SurvivesLinesOffTheImage) {
    for (const auto& [width, height] : {std::pair{0, 0}, {1, 1}, {7, 300}, {33, 2}}) {
        CoverageMask mask = MakeCoverageMask(width, height);
        for (const double far : {-1e7, -80.0, 0.0, 0.5, 1e7})
            for (const double other : {-1e7, -3.0, 0.0, 150.0, 1e7}) {
                CoverLine(mask, {far, other, other, far}, 64.0);
                CoverLine(mask, {far, far, far, far}, 1.0);
                CoverCircle(mask, far, other, 1e6, 3.0);
            }
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                          static_cast<std::size_t>(height));
        PaintCovered(mask, 0xFFFFFF, pixels.data(), width);
    }
}

}  // namespace
}  // namespace kalvex
