// Per axis: find the marks of the grid, widen the step until the largest numbers on the picture fit
// beside each other, then place the numbers from the origin outward, each only where its box lies
// on the picture and clear of those placed before. When fewer than two can be read, they are taken
// away again and numbers at nice steps take their place.
#include "graph/coordinates.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "base/encoding.h"
#include "graph/axis_marks.h"
#include "graph/nice_texts.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

/// From this distance on, the rounding of the origin moves marks by a quarter of a pixel and more.
constexpr double kFarOrigin = 0x1p51;

constexpr std::size_t kLongestWhole = 16;  ///< characters of a whole number in full

/// A number to stand at a pixel of its axis.
struct Label {
    std::u16string text;
    std::int32_t pixel = 0;
};

struct WholeNumbers {
    std::vector<Label> labels;
    double units = 0.0;  ///< their step
};

std::u16string NumberText(double value) {
    return Widen(FormatShortest(value));
}

std::int32_t ClampInto(std::int64_t value, std::int64_t size, std::int64_t end) {
    return static_cast<std::int32_t>(std::max<std::int64_t>(0, std::min(value, end - size)));
}

bool PlaceOnX(NumberPlaces& places, const Label& label) {
    const TextExtent extent = ExtentOf(places, label.text);
    const std::int64_t axis = TruncateToInt32(places.viewport.view.OriginY);
    return Place(places, label.text, std::int64_t{label.pixel} - extent.width / 2,
                 ClampInto(axis + kNumberGap - 1, extent.height, places.viewport.ClientHeight));
}

bool PlaceOnY(NumberPlaces& places, const Label& label) {
    const TextExtent extent = ExtentOf(places, label.text);
    const std::int64_t axis = TruncateToInt32(places.viewport.view.OriginX);
    return Place(
        places, label.text,
        ClampInto(axis - kNumberGap - extent.width, extent.width, places.viewport.ClientWidth),
        std::int64_t{label.pixel} - extent.height / 2);
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
WholeNumbers FittingLabels(AxisLadder ladder, std::int32_t end, double sign, const Size& size) {
    const double step = GridStep(ladder.scale);
    // The grid's own step is tried even when it is wider than the picture: one mark may be there.
    for (double decade = 1.0; decade == 1.0 || decade * step * ladder.scale < end; decade *= 10.0) {
        for (const double digit : {1.0, 2.0, 5.0}) {
            ladder.units = step * decade * digit;
            std::vector<Label> labels = LabelsAt(ladder, end, sign);
            if (labels.size() < 2) return {labels, ladder.units};
            const auto longest = std::max_element(
                labels.begin(), labels.end(),
                [](const Label& a, const Label& b) { return a.text.size() < b.text.size(); });
            if (size(longest->text) + kNumberGap <= ladder.units * ladder.scale)
                return {labels, ladder.units};
        }
    }
    return {};
}

WholeNumbers WholeNumbersOf(const NumberPlaces& places, AxisOf axis) {
    const Viewport& viewport = places.viewport;
    const ViewWindow& view = viewport.view;
    if (axis == AxisOf::X) {
        const auto width = [&](const std::u16string& text) { return ExtentOf(places, text).width; };
        return FittingLabels(LadderX(view), viewport.ClientWidth, std::copysign(1.0, view.ScaleX),
                             width);
    }
    const auto height = [&](const std::u16string& text) { return ExtentOf(places, text).height; };
    return FittingLabels(LadderY(view), viewport.ClientHeight, -std::copysign(1.0, view.ScaleY),
                         height);
}

/// The axes on which zero was placed.
struct ZeroPlace {
    bool onX = false;
    bool onY = false;
};

ZeroPlace PlaceZero(NumberPlaces& places) {
    const ViewWindow& view = places.viewport.view;
    const std::int32_t width = places.viewport.ClientWidth;
    const std::int32_t height = places.viewport.ClientHeight;
    const Label x{u"0", TruncateToInt32(view.OriginX)};
    const Label y{u"0", TruncateToInt32(view.OriginY)};
    const bool onX = view.OriginX > -1.0 && view.OriginX < width;
    const bool onY = view.OriginY > -1.0 && view.OriginY < height;
    bool placed = false;
    if (onX && onY) {
        const TextExtent extent = ExtentOf(places, x.text);
        placed =
            Place(places, x.text,
                  ClampInto(std::int64_t{x.pixel} - kNumberGap - extent.width, extent.width, width),
                  ClampInto(std::int64_t{y.pixel} + kNumberGap - 1, extent.height, height));
    } else if (onX) {
        placed = PlaceOnX(places, x);
    } else if (onY) {
        placed = PlaceOnY(places, y);
    }
    return {placed && onX, placed && onY};
}

/// Takes zero away, which is the first text.
void RemoveZero(NumberPlaces& places) {
    places.texts.erase(places.texts.begin());
    places.extents.erase(places.extents.begin());
}

/// Whether numbers from a place on can be read: none has a long text with an exponent, or more
/// digits than a double holds.
bool AreReadable(const NumberPlaces& places, std::size_t first) {
    return std::all_of(places.texts.begin() + static_cast<std::ptrdiff_t>(first),
                       places.texts.end(), [](const TextRecord& number) {
                           const bool full = number.text.find(u'e') == std::u16string::npos;
                           return number.text.size() <= (full ? kLongestWhole : kLongestNumber);
                       });
}

/// A whole step as digit 10^exponent; nothing when it is none.
std::optional<NiceStep> NiceStepOf(double units) {
    NiceStep step;
    for (double value = 1.0; value <= units; step = NextStep(step)) {
        if (value == units) return step;
        value *= step.digit == 2 ? 2.5 : 2.0;
    }
    return std::nullopt;
}

/// Places the numbers of one axis. `zero` tells whether zero is already placed on this axis, and
/// `alone` whether it is on no other.
std::optional<NiceStep> PlaceAxis(NumberPlaces& places, AxisOf axis, bool zero, bool alone,
                                  bool niceSteps, std::vector<Segment>& ticks) {
    const std::size_t before = places.texts.size();
    const WholeNumbers whole = WholeNumbersOf(places, axis);
    const auto placeWhole = [&] {
        for (const Label& label : whole.labels)
            static_cast<void>(axis == AxisOf::X ? PlaceOnX(places, label)
                                                : PlaceOnY(places, label));
        return places.texts.size() - before + (zero ? 1 : 0);
    };
    const AxisSpan span = SpanOf(places.viewport, axis);
    const std::optional<NiceStep> step = NiceStepOf(whole.units);
    const std::size_t count = placeWhole();
    const bool near = std::fabs(span.origin) < kFarOrigin;
    if (count >= 2 && near && AreReadable(places, before) && (step || !niceSteps)) return step;
    // Numbers at nice steps have their own zero when it belongs to this axis alone.
    KeepFirst(places, before);
    const NumberPlaces kept = places;
    if (alone) RemoveZero(places);
    const NiceNumbers nice = PlaceNiceNumbers(places, axis);
    if (nice.count + (zero && !alone ? 1 : 0) > count || (count >= 2 && nice.count >= 2)) {
        ticks.insert(ticks.end(), nice.ticks.begin(), nice.ticks.end());
        return nice.step;
    }
    places.texts = kept.texts;
    places.extents = kept.extents;
    placeWhole();
    return step;
}

}  // namespace

NumberLayout LayoutNumbers(const Viewport& viewport, const MeasureText& measure, bool niceSteps) {
    if (!HasUsableMapping(viewport.view)) return {};
    NumberPlaces places{viewport, measure, {}, {}};
    const ZeroPlace zero = PlaceZero(places);
    NumberLayout layout;
    const bool onlyX = zero.onX && !zero.onY;
    const bool onlyY = zero.onY && !zero.onX;
    layout.stepX = PlaceAxis(places, AxisOf::X, zero.onX, onlyX, niceSteps, layout.ticks);
    layout.stepY = PlaceAxis(places, AxisOf::Y, zero.onY, onlyY, niceSteps, layout.ticks);
    layout.numbers = std::move(places.texts);
    return layout;
}

void DrawCoordinates(const Viewport& viewport, const MeasureText& measure, DrawList& list) {
    NumberLayout layout = LayoutNumbers(viewport, measure, false);
    list.records.insert(list.records.end(), std::make_move_iterator(layout.numbers.begin()),
                        std::make_move_iterator(layout.numbers.end()));
}

}  // namespace kalvex
