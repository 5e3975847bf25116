// What the graph tests share: laid-out viewports, compiled entries, a text measure of fixed widths
// and the records of one kind.
#pragma once

#include <limits>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "graph/draw_list.h"
#include "graph/graph.h"
#include "graph/viewport.h"
#include "workspace/function_entry.h"

namespace kalvex::fixtures {

inline Viewport MakeViewport(double xmin, double xmax, double ymin, double ymax,
                             std::int32_t width = 240, std::int32_t height = 268) {
    Viewport viewport;
    viewport.view.Xmin = xmin;
    viewport.view.Xmax = xmax;
    viewport.view.Ymin = ymin;
    viewport.view.Ymax = ymax;
    LayoutViewport(viewport, width, height);
    return viewport;
}

inline FunctionEntry MakeEntry(EquationType type, std::u16string_view text,
                               std::u16string_view yText = {}) {
    FunctionEntry entry;
    entry.type = type;
    entry.color = 1;
    entry.selected = 1;
    entry.text = text;
    if (!text.empty()) entry.compiled[0] = CompileExpression(text);
    if (!yText.empty()) entry.compiled[1] = CompileExpression(yText);
    return entry;
}

/// A text measure: 6 pixels per character, one and a half times the font height.
inline TextExtent MeasureFixed(std::u16string_view text, std::int32_t height) {
    return {static_cast<std::int32_t>(text.size()) * 6, height + height / 2};
}

template <typename Record>
std::vector<Record> RecordsOf(const DrawList& list) {
    std::vector<Record> found;
    for (const DrawRecord& record : list.records)
        if (const auto* one = std::get_if<Record>(&record)) found.push_back(*one);
    return found;
}

/// A segment as classic pictures show it.
struct PixelSegment {
    PixelPoint from;
    PixelPoint to;
    friend bool operator==(const PixelSegment&, const PixelSegment&) = default;
};

inline std::vector<PixelSegment> PixelsOf(const std::vector<Segment>& segments) {
    std::vector<PixelSegment> pixels;
    for (const Segment& segment : segments)
        if (!IsWithinPixel(segment)) pixels.push_back({PixelOf(segment.from), PixelOf(segment.to)});
    return pixels;
}

inline std::vector<PixelPoint> PixelsOf(const std::vector<Position>& positions) {
    std::vector<PixelPoint> pixels;
    for (const Position& position : positions)
        pixels.push_back(PixelOf(position));
    return pixels;
}

struct Size {
    std::int32_t width;
    std::int32_t height;
};

inline constexpr Size kExtremeSizes[] = {{0, 0}, {1, 1}, {1, 500}, {240, 268}, {1920, 1080}};

/// Bounds of one axis: huge, tiny, equal, reversed and infinite ones. Dialogs refuse some of them.
inline const std::vector<std::pair<double, double>>& ExtremeBounds() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    static const std::vector<std::pair<double, double>> bounds = {
        {-1e300, 1e300}, {1.0, 1.0 + 2.3e-16}, {1e-300, 2e-300},   {-1e-300, 1e-300},
        {5.0, 5.0},      {10.0, -10.0},        {-10.0, kInfinity}, {-kInfinity, kInfinity},
        {kNan, 1.0},     {-1e308, 1e308},      {1e300, 2e300},     {1e9, 1e9 + 300.0},
        {-1e9, 1e-3},    {-1e15, 1e15},        {4e5, 4e5 + 1e-5},
    };
    return bounds;
}

}  // namespace kalvex::fixtures
