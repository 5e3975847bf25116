// Implicit curves as lines. The values that decide which pixels belong to a curve also say between
// which two points it passes, so its lines are found while its pixels are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/interruption.h"
#include "expr/evaluator.h"
#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

/// The middles of a pixel's left, upper, right and lower edges, in half pixels from its centre.
inline constexpr std::array<PixelPoint, 4> kEdgeMiddles = {{{-1, 0}, {0, -1}, {1, 0}, {0, 1}}};

/// The values of G at the middles of a pixel's edges.
struct EdgeValues {
    double left = 0.0;
    double above = 0.0;
    double right = 0.0;
    double below = 0.0;
};

/// A place where the curve passes between the middles of two neighbouring edges of a pixel.
struct Crossing {
    std::int32_t column = 0;
    std::int32_t row = 0;
    std::int32_t edge = 0;  ///< 0 left-above, 1 above-right, 2 right-below, 3 below-left
    double from = 0.0;      ///< the values at both ends
    double to = 0.0;
};

/// What is known of a column in a row.
struct ContourCell {
    std::array<std::int32_t, 4> crossings = {-1, -1, -1, -1};  ///< by edge
    std::uint8_t zeros = 0;  ///< bit i: the value at the middle of edge i (left first) is 0
    bool isSet = false;
};

/// Four crossings between two pairs of opposite points: which belong together is not known.
struct Saddle {
    std::array<std::int32_t, 4> crossings = {};  ///< crossing i lies between points i and i + 1
    std::array<PixelPoint, 4> points = {};       ///< in half pixels, see LatticePoint
    std::array<double, 4> values = {};
    bool isPixel = false;  ///< the points are the middles of a pixel's edges
};

/// The square between four pixels, by its upper left one, with an odd number of known crossings.
struct OddCorner {
    std::int32_t column = 0;
    std::int32_t row = 0;
    std::array<std::int32_t, 4> crossings = {-1, -1, -1, -1};
};

/// The lines of a curve while its rows are being computed. Filled by AddPixel and EndContourRow.
struct ContourTrace {
    std::int32_t width = 0;
    std::int32_t row = 0;
    std::vector<ContourCell> upper;  ///< the previous row
    std::vector<ContourCell> lower;  ///< the present row
    std::vector<std::int32_t> upperSet;
    std::vector<std::int32_t> lowerSet;
    std::vector<Crossing> crossings;
    std::vector<std::array<std::int32_t, 2>> links;  ///< of each crossing, in its pixel and outside
    std::vector<Saddle> saddles;
    std::vector<OddCorner> oddCorners;
    std::vector<std::array<PixelPoint, 2>> zeroLines;  ///< in half pixels; dots have equal ends
    std::vector<PixelRun> filled;
    bool isTooLarge = false;  ///< so many crossings that lines would show nothing more
};

/// @param width columns of the picture, at least 1
[[nodiscard]] ContourTrace StartContours(std::int32_t width);

/// Adds a pixel of the curve to the present row; columns must rise.
void AddPixel(ContourTrace& trace, std::int32_t column, const EdgeValues& values);

/// Ends the present row and begins the next one.
void EndContourRow(ContourTrace& trace);

/// The crossings of a pixel with these values (left, above, right, below), by edge; -1 for none.
[[nodiscard]] std::array<std::int32_t, 4> AddCrossings(ContourTrace& trace, std::int32_t column,
                                                       std::int32_t row,
                                                       const std::array<double, 4>& values);

/// Notes a pixel all of whose sides are crossed.
void AddPixelSaddle(ContourTrace& trace, std::int32_t column, std::int32_t row,
                    const std::array<std::int32_t, 4>& crossings,
                    const std::array<double, 4>& values);

/// Notes a square between four pixels all of whose sides are crossed; `row` is that of the upper
/// ones, `column` that of the left ones.
void AddCornerSaddle(ContourTrace& trace, std::int32_t column, std::int32_t row,
                     const std::array<std::int32_t, 4>& crossings);

/// Joins two crossings by a piece within a pixel (side 0) or within a square between four (side 1).
void Link(ContourTrace& trace, std::int32_t a, std::int32_t b, std::size_t side);

/// The lines of the whole curve. Every pixel of the curve is crossed by a line or filled. Where
/// branches meet, they are joined. Nothing when there are too many lines to be told apart, when the
/// window's mapping cannot be used, or when `interruption` stops the work.
[[nodiscard]] std::optional<Contours> FinishContours(ContourTrace trace,
                                                     const CompiledExpression& expression,
                                                     const Viewport& viewport,
                                                     Interruption* interruption);

}  // namespace kalvex
