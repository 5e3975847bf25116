// The points at which G is known, the middles of all edges of pixels, are the corners of squares
// that stand on their tips: one about the centre of each pixel and one about each point where four
// pixels meet. Where G changes its sign between two corners of a square, the curve crosses that
// side. A square with two crossings has one piece of the curve. Each side belongs to one square of
// either kind, so the pieces join to lines. An exact 0 counts as positive; where all other values
// are positive too, the zeros themselves are joined.
#include "graph/contours.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace kalvex {
namespace {

/// Beyond this there are several crossings for each pixel of most screens.
constexpr std::size_t kMostCrossings = 2'000'000;

bool ChangesSign(double a, double b) {
    return !std::isnan(a) && !std::isnan(b) && (a < 0.0) != (b < 0.0);
}

std::int32_t AddCrossing(ContourTrace& trace, const Crossing& crossing) {
    trace.crossings.push_back(crossing);
    trace.links.push_back({-1, -1});
    return static_cast<std::int32_t>(trace.crossings.size()) - 1;
}

void FillPixel(ContourTrace& trace, std::int32_t column) {
    std::vector<PixelRun>& filled = trace.filled;
    const bool joins = !filled.empty() && filled.back().row == trace.row &&
                       filled.back().column + filled.back().length == column;
    if (joins)
        ++filled.back().length;
    else
        filled.push_back({trace.row, column, 1});
}

PixelPoint EdgeMiddle(std::int32_t column, std::int32_t row, std::size_t edge) {
    return {2 * column + kEdgeMiddles[edge].x, 2 * row + kEdgeMiddles[edge].y};
}

/// A pixel without a change of sign belongs to the curve for the zeros at its edges. Without one,
/// the product of two values was too small for a double.
void AddZeros(ContourTrace& trace, std::int32_t column, std::uint8_t zeros) {
    const int count = std::popcount(zeros);
    if (count == 0 || count > 2) return FillPixel(trace, column);
    const auto first = static_cast<std::size_t>(std::countr_zero(zeros));
    const auto last = static_cast<std::size_t>(std::bit_width(zeros) - 1);
    trace.zeroLines.push_back(
        {EdgeMiddle(column, trace.row, first), EdgeMiddle(column, trace.row, last)});
}

struct Found {
    std::array<std::int32_t, 4> crossings = {};
    std::size_t count = 0;
};

Found FoundIn(const std::array<std::int32_t, 4>& crossings) {
    Found found;
    for (const std::int32_t crossing : crossings)
        if (crossing >= 0) found.crossings[found.count++] = crossing;
    return found;
}

/// The crossings on the four sides of the square between four pixels, by its upper left one.
std::array<std::int32_t, 4> CornerCrossings(const ContourTrace& trace, std::size_t column) {
    return {trace.upper[column + 1].crossings[3], trace.lower[column + 1].crossings[0],
            trace.lower[column].crossings[1], trace.upper[column].crossings[2]};
}

/// The zeros at the corners of that square, in the same order: top, right, bottom, left.
std::uint8_t CornerZeros(const ContourTrace& trace, std::size_t column) {
    const auto has = [](const ContourCell& cell, int edge) {
        return (cell.zeros >> edge & 1) != 0;
    };
    const ContourCell& upperLeft = trace.upper[column];
    const ContourCell& upperRight = trace.upper[column + 1];
    const ContourCell& lowerLeft = trace.lower[column];
    const ContourCell& lowerRight = trace.lower[column + 1];
    const bool top = has(upperLeft, 2) || has(upperRight, 0);
    const bool right = has(upperRight, 3) || has(lowerRight, 1);
    const bool bottom = has(lowerLeft, 2) || has(lowerRight, 0);
    const bool left = has(upperLeft, 3) || has(lowerLeft, 1);
    return static_cast<std::uint8_t>(top | right << 1 | bottom << 2 | left << 3);
}

PixelPoint CornerPoint(std::int32_t column, std::int32_t row, std::size_t index) {
    return {2 * column + 1 + kEdgeMiddles[(index + 1) % 4].x,
            2 * row + 1 + kEdgeMiddles[(index + 1) % 4].y};
}

/// Joins what is known on the sides of one square between four pixels.
void JoinCorner(ContourTrace& trace, std::int32_t column) {
    const auto index = static_cast<std::size_t>(column);
    const std::array<std::int32_t, 4> crossings = CornerCrossings(trace, index);
    const Found found = FoundIn(crossings);
    if (found.count == 2) return Link(trace, found.crossings[0], found.crossings[1], 1);
    if (found.count == 4) return AddCornerSaddle(trace, column, trace.row - 1, crossings);
    if (found.count > 0) {
        trace.oddCorners.push_back({column, trace.row - 1, crossings});
        return;
    }
    const std::uint8_t zeros = CornerZeros(trace, index);
    if (std::popcount(zeros) != 2) return;
    const auto first = static_cast<std::size_t>(std::countr_zero(zeros));
    const auto last = static_cast<std::size_t>(std::bit_width(zeros) - 1);
    trace.zeroLines.push_back(
        {CornerPoint(column, trace.row - 1, first), CornerPoint(column, trace.row - 1, last)});
}

/// Visits each square between the previous and the present row that touches a pixel of the curve,
/// once, from left to right.
void JoinRows(ContourTrace& trace) {
    std::vector<std::int32_t> columns(trace.upperSet.size() + trace.lowerSet.size());
    std::merge(trace.upperSet.begin(), trace.upperSet.end(), trace.lowerSet.begin(),
               trace.lowerSet.end(), columns.begin());
    std::int32_t next = 0;
    for (const std::int32_t column : columns) {
        for (std::int32_t corner = std::max(column - 1, next);
             corner <= column && corner + 1 < trace.width; ++corner) {
            JoinCorner(trace, corner);
            next = corner + 1;
        }
    }
}

}  // namespace

void Link(ContourTrace& trace, std::int32_t a, std::int32_t b, std::size_t side) {
    trace.links[static_cast<std::size_t>(a)][side] = b;
    trace.links[static_cast<std::size_t>(b)][side] = a;
}

std::array<std::int32_t, 4> AddCrossings(ContourTrace& trace, std::int32_t column, std::int32_t row,
                                         const std::array<double, 4>& values) {
    std::array<std::int32_t, 4> crossings = {-1, -1, -1, -1};
    for (std::size_t edge = 0; edge < 4; ++edge) {
        const double from = values[edge];
        const double to = values[(edge + 1) % 4];
        if (ChangesSign(from, to))
            crossings[edge] =
                AddCrossing(trace, {column, row, static_cast<std::int32_t>(edge), from, to});
    }
    return crossings;
}

void AddPixelSaddle(ContourTrace& trace, std::int32_t column, std::int32_t row,
                    const std::array<std::int32_t, 4>& crossings,
                    const std::array<double, 4>& values) {
    Saddle saddle{crossings, {}, values, true};
    for (std::size_t i = 0; i < 4; ++i)
        saddle.points[i] = EdgeMiddle(column, row, i);
    trace.saddles.push_back(saddle);
}

void AddCornerSaddle(ContourTrace& trace, std::int32_t column, std::int32_t row,
                     const std::array<std::int32_t, 4>& crossings) {
    Saddle saddle;
    saddle.crossings = crossings;
    for (std::size_t i = 0; i < 4; ++i) {
        saddle.points[i] = CornerPoint(column, row, i);
        // The crossing on side i - 1 starts at point i.
        const auto before = static_cast<std::size_t>(crossings[(i + 3) % 4]);
        saddle.values[i] = trace.crossings[before].from;
    }
    trace.saddles.push_back(saddle);
}

ContourTrace StartContours(std::int32_t width) {
    ContourTrace trace;
    trace.width = width;
    trace.upper.resize(static_cast<std::size_t>(width));
    trace.lower.resize(static_cast<std::size_t>(width));
    return trace;
}

void AddPixel(ContourTrace& trace, std::int32_t column, const EdgeValues& edges) {
    if (trace.isTooLarge) return;
    const std::array<double, 4> values = {edges.left, edges.above, edges.right, edges.below};
    ContourCell& cell = trace.lower[static_cast<std::size_t>(column)];
    cell.isSet = true;
    trace.lowerSet.push_back(column);
    for (std::size_t i = 0; i < 4; ++i)
        if (values[i] == 0.0) cell.zeros = static_cast<std::uint8_t>(cell.zeros | 1U << i);
    if (std::popcount(cell.zeros) > 2) return FillPixel(trace, column);
    cell.crossings = AddCrossings(trace, column, trace.row, values);
    const Found found = FoundIn(cell.crossings);
    if (found.count == 0) return AddZeros(trace, column, cell.zeros);
    if (found.count == 2) return Link(trace, found.crossings[0], found.crossings[1], 0);
    if (found.count == 4) return AddPixelSaddle(trace, column, trace.row, cell.crossings, values);
    FillPixel(trace, column);  // a value that is not a number
}

void EndContourRow(ContourTrace& trace) {
    trace.isTooLarge = trace.isTooLarge || trace.crossings.size() > kMostCrossings;
    if (trace.isTooLarge) return;
    if (trace.row > 0) JoinRows(trace);
    for (const std::int32_t column : trace.upperSet)
        trace.upper[static_cast<std::size_t>(column)] = {};
    trace.upperSet.clear();
    trace.upper.swap(trace.lower);
    trace.upperSet.swap(trace.lowerSet);
    ++trace.row;
}

}  // namespace kalvex
