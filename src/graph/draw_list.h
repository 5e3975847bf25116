// A picture as data: plain drawing records in logical pixels, in painting order. The graph room
// makes them and the painter room draws them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "workspace/function_entry.h"

namespace kalvex {

struct PixelPoint {
    std::int32_t x = 0;  ///< column, grows to the right
    std::int32_t y = 0;  ///< row, grows downward
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

struct Pen {
    Rgb color;
    std::int32_t width = 1;  ///< logical pixels
};

struct Segment {
    PixelPoint from;
    PixelPoint to;
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

/// Separate lines drawn with one pen.
struct SegmentsRecord {
    Pen pen;
    std::vector<Segment> segments;
    RecordOrigin origin = {};
};

/// One unbroken run of two points or more.
struct PolylineRecord {
    Pen pen;
    std::vector<PixelPoint> points;
    RecordOrigin origin = {};
};

/// An ellipse in its bounding box, outlined and, when asked, filled.
struct EllipseRecord {
    Pen pen;
    bool filled = false;
    Rgb fill;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    RecordOrigin origin = {};
};

/// Pixels (column .. column + length - 1, row).
struct PixelRun {
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::int32_t length = 0;
    friend bool operator==(const PixelRun&, const PixelRun&) = default;
};

struct PixelRunsRecord {
    Rgb color;
    std::vector<PixelRun> runs;
    RecordOrigin origin = {};
};

/// One line of text; (x, y) is the top left corner of its box.
struct TextRecord {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::u16string text;
    Rgb color;
    std::int32_t height = 0;  ///< character height in logical pixels
    RecordOrigin origin = {};
};

using DrawRecord =
    std::variant<SegmentsRecord, PolylineRecord, EllipseRecord, PixelRunsRecord, TextRecord>;

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
