// A picture as data: plain drawing records in logical pixels, in painting order. The graph room
// makes them and the painter room draws them, in one of two ways. The classic way paints whole
// pixels: it truncates every position toward zero. The smooth way paints at the positions
// themselves. Which records there are is the same for both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "numbers/truncate.h"
#include "workspace/function_entry.h"

namespace kalvex {

struct PixelPoint {
    std::int32_t x = 0;  ///< column, grows to the right
    std::int32_t y = 0;  ///< row, grows downward
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// A point of the picture that is not rounded: pixel (i, j) is the square from (i, j) to
/// (i + 1, j + 1). May be infinite or beyond the range of pixels.
struct Position {
    double x = 0.0;
    double y = 0.0;
    friend bool operator==(const Position&, const Position&) = default;
};

/// The pixel of a position, truncated toward zero and bounded to 32 bits.
[[nodiscard]] constexpr PixelPoint PixelOf(const Position& position) {
    return {TruncateToInt32(position.x), TruncateToInt32(position.y)};
}

struct Pen {
    Rgb color;
    std::int32_t width = 1;  ///< logical pixels
};

struct Segment {
    Position from;
    Position to;
    friend bool operator==(const Segment&, const Segment&) = default;
};

/// The layers of a picture, in painting order.
enum class DrawLayer : std::uint8_t { Grid, Axes, Numbers, Curve, Name };

/// What a record shows. The painter does not need it; tests and the text form of a list do.
struct RecordOrigin {
    DrawLayer layer = DrawLayer::Curve;
    std::optional<std::int32_t> slot = {};  ///< the function line 0..8 of a curve or a name
    friend bool operator==(const RecordOrigin&, const RecordOrigin&) = default;
};

/// Whether both ends of a segment are the same pixel. Classic pictures leave such a segment out.
[[nodiscard]] constexpr bool IsWithinPixel(const Segment& segment) {
    return PixelOf(segment.from) == PixelOf(segment.to);
}

/// Separate lines drawn with one pen. Those of a curve that follow each other share an end.
struct SegmentsRecord {
    Pen pen;
    std::vector<Segment> segments;
    RecordOrigin origin = {};
};

/// One unbroken run of two points or more.
struct PolylineRecord {
    Pen pen;
    std::vector<Position> points;
    RecordOrigin origin = {};
};

/// A circle whose size does not depend on the view.
struct CircleRecord {
    Pen pen;
    Position centre;
    std::int32_t radius = 0;
    RecordOrigin origin = {};
};

/// An ellipse in its bounding box, outlined and, when asked, filled.
struct EllipseRecord {
    Pen pen;
    bool filled = false;
    Rgb fill;
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    RecordOrigin origin = {};
};

/// Pixels (column .. column + length - 1, row).
struct PixelRun {
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::int32_t length = 0;
    friend bool operator==(const PixelRun&, const PixelRun&) = default;
};

/// An implicit curve as lines, of a pen of one pixel.
struct Contours {
    std::vector<Position> points;   ///< those of all lines, one line after the other
    std::vector<std::size_t> ends;  ///< for each line, how many points there are up to its end
    std::vector<PixelRun> filled;   ///< pixels that belong to the curve and to no line
};

struct PixelRunsRecord {
    Rgb color;
    std::vector<PixelRun> runs;
    RecordOrigin origin = {};
    std::optional<Contours> contours = {};  ///< the same curve for smooth pictures
};

/// One line of text; (x, y) is the top left corner of its box.
struct TextRecord {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::u16string text;
    Rgb color;
    std::int32_t height = 0;  ///< character height in logical pixels
    RecordOrigin origin = {};
    bool covered = false;  ///< a number below a function's name; smooth pictures leave it out
};

using DrawRecord = std::variant<SegmentsRecord, PolylineRecord, CircleRecord, EllipseRecord,
                                PixelRunsRecord, TextRecord>;

/// The background is white.
struct DrawList {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<DrawRecord> records;
};

struct TextExtent {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Box of one line of text at a character height, in logical pixels.
using MeasureText = std::function<TextExtent(std::u16string_view text, std::int32_t height)>;

}  // namespace kalvex
