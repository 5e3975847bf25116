// Per axis: find the marks of the grid, widen the step until the largest numbers on the picture fit
// beside each other, then place the numbers from the origin outward, each only where its box lies
// on the picture and clear of those placed before.
#include "graph/coordinates.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/encoding.h"
#include "graph/axis_marks.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr std::int32_t kGap = 3;  ///< pixels between a number and its axis or its neighbour

struct Box {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

bool Overlap(const Box& a, const Box& b) {
    return a.left < b.right + kGap && b.left < a.right + kGap && a.top < b.bottom &&
           b.top < a.bottom;
}

/// The layer while it is laid out.
struct Layout {
    const Viewport& viewport;
    const MeasureText& measure;
    DrawList& list;
    std::vector<Box> placed;
};

/// A number to stand at a pixel of its axis.
struct Label {
    std::u16string text;
    std::int32_t pixel = 0;
};

std::u16string NumberText(double value) {
    return Widen(FormatShortest(value));
}

std::int32_t ClampInto(std::int64_t value, std::int64_t size, std::int64_t end) {
    return static_cast<std::int32_t>(std::max<std::int64_t>(0, std::min(value, end - size)));
}

void Place(Layout& layout, const std::u16string& text, std::int64_t left, std::int64_t top,
           const TextExtent& extent) {
    if (left < 0 || top < 0 || left + extent.width > layout.viewport.ClientWidth ||
        top + extent.height > layout.viewport.ClientHeight)
        return;
    const auto x = static_cast<std::int32_t>(left);
    const auto y = static_cast<std::int32_t>(top);
    const Box box{x, y, x + extent.width, y + extent.height};
    for (const Box& other : layout.placed)
        if (Overlap(box, other)) return;
    layout.placed.push_back(box);
    layout.list.records.emplace_back(TextRecord{x, y, text, {0, 0, 0}, kCoordinateHeight});
}

void PlaceOnX(Layout& layout, const Label& label) {
    const TextExtent extent = layout.measure(label.text, kCoordinateHeight);
    const std::int64_t axis = TruncateToInt32(layout.viewport.view.OriginY);
    Place(layout, label.text, std::int64_t{label.pixel} - extent.width / 2,
          ClampInto(axis + kGap - 1, extent.height, layout.viewport.ClientHeight), extent);
}

void PlaceOnY(Layout& layout, const Label& label) {
    const TextExtent extent = layout.measure(label.text, kCoordinateHeight);
    const std::int64_t axis = TruncateToInt32(layout.viewport.view.OriginX);
    Place(layout, label.text,
          ClampInto(axis - kGap - extent.width, extent.width, layout.viewport.ClientWidth),
          std::int64_t{label.pixel} - extent.height / 2, extent);
}

/// Numbers on one axis at a step. `sign` is that of the values toward larger pixels.
std::vector<Label> LabelsAt(const AxisLadder& ladder, std::int32_t end, double sign) {
    std::vector<Label> labels;
    for (const AxisMark& mark : MarksTowardZero(ladder, 1.0, end))
        labels.push_back({NumberText(-sign * mark.k * ladder.units), mark.pixel});
    for (const AxisMark& mark : MarksAwayFromZero(ladder, 1.0, end))
        labels.push_back({NumberText(sign * mark.k * ladder.units), mark.pixel});
    return labels;
}

/// The labels of an axis at the smallest multiple of its grid step that keeps them apart. `size`
/// tells how many pixels a text takes along the axis.
template <typename Size>
std::vector<Label> FittingLabels(AxisLadder ladder, std::int32_t end, double sign,
                                 const Size& size) {
    const double step = GridStep(ladder.scale);
    // The grid's own step is tried even when it is wider than the picture: one mark may be there.
    for (double decade = 1.0; decade == 1.0 || decade * step * ladder.scale < end; decade *= 10.0) {
        for (const double digit : {1.0, 2.0, 5.0}) {
            ladder.units = step * decade * digit;
            std::vector<Label> labels = LabelsAt(ladder, end, sign);
            if (labels.size() < 2) return labels;
            const auto longest = std::max_element(
                labels.begin(), labels.end(),
                [](const Label& a, const Label& b) { return a.text.size() < b.text.size(); });
            if (size(longest->text) + kGap <= ladder.units * ladder.scale) return labels;
        }
    }
    return {};
}

void PlaceZero(Layout& layout) {
    const ViewWindow& view = layout.viewport.view;
    const Label x{u"0", TruncateToInt32(view.OriginX)};
    const Label y{u"0", TruncateToInt32(view.OriginY)};
    const bool onX = view.OriginX > -1.0 && view.OriginX < layout.viewport.ClientWidth;
    const bool onY = view.OriginY > -1.0 && view.OriginY < layout.viewport.ClientHeight;
    if (onX && onY) {
        const TextExtent extent = layout.measure(x.text, kCoordinateHeight);
        Place(layout, x.text,
              ClampInto(std::int64_t{x.pixel} - kGap - extent.width, extent.width,
                        layout.viewport.ClientWidth),
              ClampInto(std::int64_t{y.pixel} + kGap - 1, extent.height,
                        layout.viewport.ClientHeight),
              extent);
    } else if (onX) {
        PlaceOnX(layout, x);
    } else if (onY) {
        PlaceOnY(layout, y);
    }
}

}  // namespace

void DrawCoordinates(const Viewport& viewport, const MeasureText& measure, DrawList& list) {
    const ViewWindow& view = viewport.view;
    if (!HasUsableMapping(view)) return;
    Layout layout{viewport, measure, list, {}};
    const auto width = [&](const std::u16string& text) {
        return measure(text, kCoordinateHeight).width;
    };
    const auto height = [&](const std::u16string& text) {
        return measure(text, kCoordinateHeight).height;
    };
    PlaceZero(layout);
    for (const Label& label :
         FittingLabels(LadderX(view), viewport.ClientWidth, std::copysign(1.0, view.ScaleX), width))
        PlaceOnX(layout, label);
    for (const Label& label : FittingLabels(LadderY(view), viewport.ClientHeight,
                                            -std::copysign(1.0, view.ScaleY), height))
        PlaceOnY(layout, label);
}

}  // namespace kalvex
