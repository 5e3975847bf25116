// Lines with soft edges, painted directly into the pixels of an image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kalvex {

inline constexpr std::int32_t kCoverageGroup = 32;  ///< pixels of a group

/// For each pixel of an image the part of it, in 255ths, that the lines of one colour cover.
/// Coordinates are device pixels; pixel (i, j) is the square from (i, j) to (i + 1, j + 1).
struct CoverageMask {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> parts;  ///< row by row
    std::vector<std::uint8_t>
        touched;                ///< for each group of pixels of a row, whether any is covered
    std::int32_t groups = 0;    ///< in a row
    std::int32_t firstRow = 0;  ///< the rows that have touched groups
    std::int32_t endRow = 0;
};

/// The mask of an image of that size, with nothing covered.
[[nodiscard]] CoverageMask MakeCoverageMask(std::int32_t width, std::int32_t height);

/// Which ends of a line go on in another line. Such an end is cut straight, across the longer
/// direction of the line, instead of being round.
struct JoinedEnds {
    bool first = false;
    bool last = false;
};

/// From (x0, y0) to (x1, y1).
struct CoverageLine {
    double x0 = 0.0;
    double y0 = 0.0;
    double x1 = 0.0;
    double y1 = 0.0;
};

/// Whether two lines, of which the second begins where the first ends, may be joined: they have the
/// same longer direction and turn so little that a pen of this width shows no step.
[[nodiscard]] bool MayBeJoined(const CoverageLine& first, const CoverageLine& second,
                               double penWidth);

/// Covers a line. Where lines overlap, the larger part counts, so that joints show no seam. The
/// coordinates must be finite and at most 2^24 in magnitude; the line may lie off the image. The
/// part that is noted differs from the true area by less than 0.16 for pens of one pixel or wider
/// (tests/painter/coverage_test.cpp).
void CoverLine(CoverageMask& mask, const CoverageLine& line, double penWidth,
               JoinedEnds joined = {});

/// Covers the outline of a circle, under the same conditions.
void CoverCircle(CoverageMask& mask, double x, double y, double radius, double penWidth);

/// Paints what is covered with a colour (0xRRGGBB) and clears the mask. `pixels` is the first row,
/// 32 bits per pixel with the colour in the lower 24; `stride` is the distance between two rows in
/// pixels.
void PaintCovered(CoverageMask& mask, std::uint32_t color, std::uint32_t* pixels,
                  std::ptrdiff_t stride);

}  // namespace kalvex
