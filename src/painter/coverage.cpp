// The part of a pixel that a line covers is taken from the distance d of the pixel's centre to the
// line's axis: 1/2 + w/2 - d for a pen of width w, between 0 and 1. That is exact for lines along
// the axes and a good approximation for others. For each row only the pixels near the line are
// visited: the part of the line within reach of the row bounds its columns.
#include "painter/coverage.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

constexpr std::int32_t kGroup = 64;  ///< pixels

/// Pixels first .. end - 1 of one direction.
struct Range {
    std::int32_t first;
    std::int32_t end;
};

/// The pixels whose centres lie between two positions, within 0 .. size - 1.
Range CentresBetween(double low, double high, std::int32_t size) {
    const double first = std::clamp(std::ceil(low - 0.5), 0.0, static_cast<double>(size));
    const double end = std::clamp(std::floor(high - 0.5) + 1.0, first, static_cast<double>(size));
    return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(end)};
}

void NoteRows(CoverageMask& mask, const Range& rows) {
    if (mask.firstRow == mask.endRow) {
        mask.firstRow = rows.first;
        mask.endRow = rows.end;
    }
    mask.firstRow = std::min(mask.firstRow, rows.first);
    mask.endRow = std::max(mask.endRow, rows.end);
}

/// The parts of a row, whose touched groups are noted for a range of columns.
std::uint8_t* PartsOf(CoverageMask& mask, std::int32_t row, const Range& columns) {
    std::uint8_t* const touched = mask.touched.data() + std::ptrdiff_t{row} * mask.groups;
    for (std::int32_t group = columns.first / kGroup; group * kGroup < columns.end; ++group)
        touched[group] = 1;
    return mask.parts.data() + std::ptrdiff_t{row} * mask.width;
}

/// A distance at which nothing is covered, and one within which all is.
struct Edge {
    double outer;
    double innerSquared;  ///< negative when the pen is too thin to cover a whole pixel
    double outerSquared;
};

Edge EdgeOf(double penWidth) {
    const double outer = penWidth / 2.0 + 0.5;
    const double inner = penWidth / 2.0 - 0.5;
    return {outer, inner < 0.0 ? -1.0 : inner * inner, outer * outer};
}

void Raise(std::uint8_t& part, const Edge& edge, double squaredDistance) {
    if (squaredDistance >= edge.outerSquared) return;
    const double covered = squaredDistance <= edge.innerSquared
                               ? 1.0
                               : std::min(1.0, edge.outer - std::sqrt(squaredDistance));
    const auto value = static_cast<std::uint8_t>(covered * 255.0 + 0.5);
    part = std::max(part, value);
}

struct Line {
    double x;
    double y;
    double dx;
    double dy;
    double inverseSquaredLength;  ///< 0 for a point
};

/// The columns within reach of the part of the line that is within reach of a row.
Range ColumnsNear(const Line& line, double rowCentre, double reach, std::int32_t width) {
    double from = 0.0;
    double to = 1.0;
    if (line.dy != 0.0) {
        const double a = (rowCentre - reach - line.y) / line.dy;
        const double b = (rowCentre + reach - line.y) / line.dy;
        from = std::clamp(std::min(a, b), 0.0, 1.0);
        to = std::clamp(std::max(a, b), 0.0, 1.0);
    }
    const double x0 = line.x + from * line.dx;
    const double x1 = line.x + to * line.dx;
    return CentresBetween(std::min(x0, x1) - reach, std::max(x0, x1) + reach, width);
}

void CoverRow(const Line& line, const Edge& edge, double dy, const Range& columns,
              std::uint8_t* parts) {
    for (std::int32_t column = columns.first; column < columns.end; ++column) {
        const double dx = column + 0.5 - line.x;
        const double along = (dx * line.dx + dy * line.dy) * line.inverseSquaredLength;
        const double t = std::clamp(along, 0.0, 1.0);
        const double ex = dx - t * line.dx;
        const double ey = dy - t * line.dy;
        Raise(parts[column], edge, ex * ex + ey * ey);
    }
}

std::uint32_t Mixed(std::uint32_t below, std::uint32_t above, std::uint32_t part) {
    // Two channels at a time: red and blue have room for their products beside each other.
    constexpr std::uint32_t kRedBlue = 0xFF00FF;
    const std::uint32_t rest = 255 - part;
    const auto divided = [](std::uint32_t v) {
        return ((v + 0x800080 + (((v + 0x800080) >> 8) & kRedBlue)) >> 8) & kRedBlue;
    };
    const std::uint32_t redBlue = divided((below & kRedBlue) * rest + (above & kRedBlue) * part);
    const std::uint32_t green =
        divided(((below >> 8) & 0xFF) * rest + ((above >> 8) & 0xFF) * part);
    return 0xFF000000U | redBlue | (green << 8);
}

void PaintGroup(std::uint8_t* parts, std::int32_t count, std::uint32_t color,
                std::uint32_t* pixels) {
    for (std::int32_t i = 0; i < count; ++i) {
        if (parts[i] == 0) continue;
        pixels[i] = parts[i] == 255 ? 0xFF000000U | color : Mixed(pixels[i], color, parts[i]);
        parts[i] = 0;
    }
}

}  // namespace

CoverageMask MakeCoverageMask(std::int32_t width, std::int32_t height) {
    CoverageMask mask;
    mask.width = std::max(width, 0);
    mask.height = std::max(height, 0);
    mask.groups = (mask.width + kGroup - 1) / kGroup;
    mask.parts.resize(static_cast<std::size_t>(mask.width) * static_cast<std::size_t>(mask.height));
    mask.touched.resize(static_cast<std::size_t>(mask.groups) *
                        static_cast<std::size_t>(mask.height));
    return mask;
}

void CoverLine(CoverageMask& mask, double x0, double y0, double x1, double y1, double penWidth) {
    const Edge edge = EdgeOf(penWidth);
    const double dx = x1 - x0;
    const double dy = y1 - y0;
    const double squared = dx * dx + dy * dy;
    const Line line{x0, y0, dx, dy, squared > 0.0 ? 1.0 / squared : 0.0};
    const Range rows =
        CentresBetween(std::min(y0, y1) - edge.outer, std::max(y0, y1) + edge.outer, mask.height);
    if (rows.first == rows.end) return;
    NoteRows(mask, rows);
    for (std::int32_t row = rows.first; row < rows.end; ++row) {
        const double centre = row + 0.5;
        const Range columns = ColumnsNear(line, centre, edge.outer, mask.width);
        if (columns.first == columns.end) continue;
        CoverRow(line, edge, centre - y0, columns, PartsOf(mask, row, columns));
    }
}

void CoverCircle(CoverageMask& mask, double x, double y, double radius, double penWidth) {
    const Edge edge = EdgeOf(penWidth);
    const double reach = radius + edge.outer;
    const Range rows = CentresBetween(y - reach, y + reach, mask.height);
    const Range columns = CentresBetween(x - reach, x + reach, mask.width);
    if (rows.first == rows.end || columns.first == columns.end) return;
    NoteRows(mask, rows);
    for (std::int32_t row = rows.first; row < rows.end; ++row) {
        std::uint8_t* const parts = PartsOf(mask, row, columns);
        const double dy = row + 0.5 - y;
        for (std::int32_t column = columns.first; column < columns.end; ++column) {
            const double dx = column + 0.5 - x;
            const double distance = std::sqrt(dx * dx + dy * dy) - radius;
            Raise(parts[column], edge, distance * distance);
        }
    }
}

void PaintCovered(CoverageMask& mask, std::uint32_t color, std::uint32_t* pixels,
                  std::ptrdiff_t stride) {
    for (std::int32_t row = mask.firstRow; row < mask.endRow; ++row) {
        std::uint8_t* const touched = mask.touched.data() + std::ptrdiff_t{row} * mask.groups;
        std::uint8_t* const parts = mask.parts.data() + std::ptrdiff_t{row} * mask.width;
        for (std::int32_t group = 0; group < mask.groups; ++group) {
            if (touched[group] == 0) continue;
            touched[group] = 0;
            const std::int32_t first = group * kGroup;
            PaintGroup(parts + first, std::min(kGroup, mask.width - first), color,
                       pixels + row * stride + first);
        }
    }
    mask.firstRow = 0;
    mask.endRow = 0;
}

}  // namespace kalvex
