// The part of a pixel that a line covers is taken from the distance d of the pixel's centre to the
// line's axis: 1/2 + w/2 - d for a pen of width w, between 0 and 1. That is exact for lines along
// the axes and a good approximation for others. A flat line is followed column by column, a steep
// one row by row; away from the ends the distance is linear across the line.
#include "painter/coverage.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>

namespace kalvex {
namespace {

/// Pixels first .. end - 1 of one direction.
struct Range {
    std::int32_t first;
    std::int32_t end;
};

/// The pixels whose centres lie between two positions, within 0 .. size - 1. Positions are rounded
/// by conversions, which take a fraction of the time of std::floor on the processors of the
/// baseline: the number that is added makes them positive.
inline Range CentresBetween(double low, double high, std::int32_t size) {
    constexpr std::int32_t kAbove = 1 << 25;
    const std::int32_t first = kAbove - static_cast<std::int32_t>(kAbove + 0.5 - low);
    const std::int32_t end = static_cast<std::int32_t>(kAbove + 0.5 + high) - kAbove;
    const std::int32_t bounded = std::min(std::max(first, 0), size);
    return {bounded, std::max(std::min(end, size), bounded)};
}

void NoteRows(CoverageMask& mask, const Range& rows) {
    if (mask.firstRow == mask.endRow) {
        mask.firstRow = rows.first;
        mask.endRow = rows.end;
    }
    mask.firstRow = std::min(mask.firstRow, rows.first);
    mask.endRow = std::max(mask.endRow, rows.end);
}

/// A line seen along its longer direction: `major` is x for flat lines and y for steep ones, and
/// rises from the first end to the last.
struct Line {
    double major;
    double minor;
    double dMajor;
    double dMinor;
    double slope;  ///< minor per major; 0 for a point
    double length;
    double reach;   ///< the distance from the axis at which nothing is covered
    double across;  ///< the same along the minor direction
};

/// The pixels of the mask in the directions of a line.
struct Grid {
    std::uint8_t* parts;
    std::ptrdiff_t majorStep;
    std::ptrdiff_t minorStep;
    std::int32_t majorSize;
    std::int32_t minorSize;
};

void RaiseTo(std::uint8_t& part, float covered) {
    constexpr float kHalf = 0.5F;  // the number is positive: truncating rounds it to the nearest
    const float bounded = std::min(std::max(covered, 0.0F), 1.0F);
    part = std::max(part, static_cast<std::uint8_t>(bounded * 255.0F + kHalf));
}

/// One column (of a flat line) or row where the nearest point of the axis is inside the line for
/// all pixels within reach: the distance is linear.
void CoverInner(const Line& line, const Grid& grid, std::int32_t major) {
    const double centre = line.minor + (major + 0.5 - line.major) * line.slope;
    const Range range = CentresBetween(centre - line.across, centre + line.across, grid.minorSize);
    const auto step = static_cast<float>(line.dMajor / line.length);
    auto distance = static_cast<float>(range.first + 0.5 - centre) * step;
    const auto reach = static_cast<float>(line.reach);
    std::uint8_t* part = grid.parts + major * grid.majorStep + range.first * grid.minorStep;
    for (std::int32_t i = range.first; i < range.end; ++i) {
        RaiseTo(*part, reach - std::fabs(distance));
        distance += step;
        part += grid.minorStep;
    }
}

/// A column or row near an end of the line.
void CoverOuter(const Line& line, const Grid& grid, std::int32_t major) {
    const double d = major + 0.5 - line.major;
    const double inside = std::min(std::max(d, 0.0), line.dMajor);
    const double centre = line.minor + inside * line.slope;
    // Beyond an end the end itself bounds the pixels on one side and the line goes on bounding them
    // on the other.
    const double beyond = d - inside;
    const double drift = beyond * line.slope;
    const double round = std::sqrt(std::max(line.reach * line.reach - beyond * beyond, 0.0));
    const double low = drift >= 0.0 ? drift - line.across : -round;
    const double high = drift <= 0.0 ? drift + line.across : round;
    const Range range = CentresBetween(centre + low, centre + high, grid.minorSize);
    const double inverse = line.length > 0.0 ? 1.0 / (line.length * line.length) : 0.0;
    const auto dMajor = static_cast<float>(line.dMajor);
    const auto dMinor = static_cast<float>(line.dMinor);
    const auto alongMajor = static_cast<float>(d);
    auto alongMinor = static_cast<float>(range.first + 0.5 - line.minor);
    auto part = static_cast<float>((d * line.dMajor + alongMinor * line.dMinor) * inverse);
    const auto partStep = static_cast<float>(line.dMinor * inverse);
    const auto reach = static_cast<float>(line.reach);
    std::uint8_t* target = grid.parts + major * grid.majorStep + range.first * grid.minorStep;
    for (std::int32_t i = range.first; i < range.end; ++i) {
        const float t = std::min(std::max(part, 0.0F), 1.0F);
        const float x = alongMajor - t * dMajor;
        const float y = alongMinor - t * dMinor;
        RaiseTo(*target, reach - std::sqrt(x * x + y * y));
        alongMinor += 1.0F;
        part += partStep;
        target += grid.minorStep;
    }
}

void Cover(const Line& line, const Grid& grid, JoinedEnds joined) {
    const double reachFirst = joined.first ? 0.0 : line.reach;
    const double reachLast = joined.last ? 0.0 : line.reach;
    const Range all = CentresBetween(line.major - reachFirst, line.major + line.dMajor + reachLast,
                                     grid.majorSize);
    // Nearer than this to an end the nearest point may be the end.
    const double end = line.across * std::fabs(line.slope) * line.dMajor * line.dMajor /
                       std::max(line.length * line.length, 1e-300);
    const Range inner =
        CentresBetween(line.major + (joined.first ? 0.0 : end),
                       line.major + line.dMajor - (joined.last ? 0.0 : end), grid.majorSize);
    const bool hasInner = line.dMajor > 0.0 && inner.first < inner.end;
    const std::int32_t innerFirst = hasInner ? std::max(inner.first, all.first) : all.end;
    const std::int32_t innerEnd = hasInner ? std::min(inner.end, all.end) : all.end;
    for (std::int32_t i = all.first; i < innerFirst; ++i)
        CoverOuter(line, grid, i);
    for (std::int32_t i = innerFirst; i < innerEnd; ++i)
        CoverInner(line, grid, i);
    for (std::int32_t i = innerEnd; i < all.end; ++i)
        CoverOuter(line, grid, i);
}

Line LineOf(double major0, double minor0, double major1, double minor1, double penWidth) {
    if (major1 < major0) {
        std::swap(major0, major1);
        std::swap(minor0, minor1);
    }
    Line line{major0, minor0, major1 - major0,      minor1 - minor0,
              0.0,    0.0,    penWidth / 2.0 + 0.5, 0.0};
    line.length = std::sqrt(line.dMajor * line.dMajor + line.dMinor * line.dMinor);
    line.across = line.reach;
    if (line.dMajor > 0.0) {
        line.slope = line.dMinor / line.dMajor;
        line.across = line.reach * line.length / line.dMajor;
    }
    return line;
}

/// Notes the groups of a box of pixels.
void Touch(CoverageMask& mask, const Range& rows, const Range& columns) {
    NoteRows(mask, rows);
    const std::int32_t first = columns.first / kCoverageGroup;
    const std::int32_t count = (columns.end - 1) / kCoverageGroup - first + 1;
    for (std::int32_t row = rows.first; row < rows.end; ++row) {
        std::uint8_t* const touched = mask.touched.data() + std::ptrdiff_t{row} * mask.groups;
        std::memset(touched + first, 1, static_cast<std::size_t>(count));
    }
}

bool IsFlat(double dx, double dy) {
    return std::fabs(dx) >= std::fabs(dy);
}

/// A line that is not much longer than a group of pixels.
void CoverShort(CoverageMask& mask, const CoverageLine& line, double penWidth, JoinedEnds joined) {
    // Across a joined end the line reaches farther than half its width.
    const double reach = (penWidth / 2.0 + 0.5) * std::numbers::sqrt2;
    const auto& [x0, y0, x1, y1] = line;
    const Range rows =
        CentresBetween(std::min(y0, y1) - reach, std::max(y0, y1) + reach, mask.height);
    const Range columns =
        CentresBetween(std::min(x0, x1) - reach, std::max(x0, x1) + reach, mask.width);
    if (rows.first == rows.end || columns.first == columns.end) return;
    Touch(mask, rows, columns);
    const bool isFlat = IsFlat(x1 - x0, y1 - y0);
    if (isFlat ? x1 < x0 : y1 < y0) std::swap(joined.first, joined.last);
    if (isFlat)
        Cover(LineOf(x0, y0, x1, y1, penWidth),
              {mask.parts.data(), 1, mask.width, mask.width, mask.height}, joined);
    else
        Cover(LineOf(y0, x0, y1, x1, penWidth),
              {mask.parts.data(), mask.width, 1, mask.height, mask.width}, joined);
}

}  // namespace

CoverageMask MakeCoverageMask(std::int32_t width, std::int32_t height) {
    CoverageMask mask;
    mask.width = std::max(width, 0);
    mask.height = std::max(height, 0);
    mask.groups = (mask.width + kCoverageGroup - 1) / kCoverageGroup;
    mask.parts.resize(static_cast<std::size_t>(mask.width) * static_cast<std::size_t>(mask.height));
    mask.touched.resize(static_cast<std::size_t>(mask.groups) *
                        static_cast<std::size_t>(mask.height));
    return mask;
}

bool MayBeJoined(const CoverageLine& first, const CoverageLine& second, double penWidth) {
    constexpr double kLargestTurn = 0.06;  // its sine; 3.4 degrees
    constexpr double kLargestStep = 0.1;   // pixels
    const double ax = first.x1 - first.x0;
    const double ay = first.y1 - first.y0;
    const double bx = second.x1 - second.x0;
    const double by = second.y1 - second.y0;
    const double scalar = ax * bx + ay * by;
    const double turn = std::fabs(ax * by - ay * bx);
    if (!(scalar > 0.0) || turn > kLargestTurn * scalar || IsFlat(ax, ay) != IsFlat(bx, by))
        return false;
    // At 45 degrees the edge of the pen is half its width farther along the curve than its axis.
    // Over that length the curve leaves its tangent by half the curvature times its square.
    const double steps = turn / scalar * penWidth * penWidth / 8.0;  // times the length of a line
    if (steps * steps <= kLargestStep * kLargestStep * scalar) return true;
    const double length = (std::sqrt(ax * ax + ay * ay) + std::sqrt(bx * bx + by * by)) / 2.0;
    return steps <= kLargestStep * length;
}

void CoverLine(CoverageMask& mask, const CoverageLine& line, double penWidth, JoinedEnds joined) {
    // Cut into pieces, so that each touches few groups of pixels.
    constexpr double kLongest = 2.0 * kCoverageGroup;
    const auto& [x0, y0, x1, y1] = line;
    const double longer = std::max(std::fabs(x1 - x0), std::fabs(y1 - y0));
    const double pieces = std::ceil(longer / kLongest);
    if (pieces <= 1.0) return CoverShort(mask, line, penWidth, joined);
    const double dx = (x1 - x0) / pieces;
    const double dy = (y1 - y0) / pieces;
    for (double i = 0.0; i < pieces; ++i)
        CoverShort(mask, {x0 + i * dx, y0 + i * dy, x0 + (i + 1.0) * dx, y0 + (i + 1.0) * dy},
                   penWidth, {i > 0.0 || joined.first, i + 1.0 < pieces || joined.last});
}

void CoverCircle(CoverageMask& mask, double x, double y, double radius, double penWidth) {
    const double outer = penWidth / 2.0 + 0.5;
    const double reach = radius + outer;
    const Range rows = CentresBetween(y - reach, y + reach, mask.height);
    const Range columns = CentresBetween(x - reach, x + reach, mask.width);
    if (rows.first == rows.end || columns.first == columns.end) return;
    Touch(mask, rows, columns);
    for (std::int32_t row = rows.first; row < rows.end; ++row) {
        std::uint8_t* const parts = mask.parts.data() + std::ptrdiff_t{row} * mask.width;
        const double dy = row + 0.5 - y;
        for (std::int32_t column = columns.first; column < columns.end; ++column) {
            const double dx = column + 0.5 - x;
            const double distance = std::fabs(std::sqrt(dx * dx + dy * dy) - radius);
            RaiseTo(parts[column], static_cast<float>(outer - distance));
        }
    }
}

}  // namespace kalvex
