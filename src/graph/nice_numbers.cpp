// Steps are tried from the smallest one upward. Each attempt places its texts; those of an attempt
// that is not taken are removed again.
#include "graph/nice_numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "graph/nice_texts.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr std::int32_t kTick = 4;  ///< pixels of a tick

constexpr int kMostAttempts = 6;  ///< the last step is 100 times the first

/// Where ticks and numbers stand across their axis.
struct Across {
    double tickFrom = 0.0;
    double tickTo = 0.0;
    std::int64_t edge = 0;       ///< of the numbers, on the side of the ticks
    bool isEnd = false;          ///< the numbers end at `edge` instead of beginning there
    bool offsetOutside = false;  ///< there is room for the offset on the other side of the axis
    std::int64_t outside = 0;    ///< where the offset ends or begins there
};

/// The numbers of one attempt.
struct Attempt {
    std::vector<NiceMark> marks;
    NiceTexts labels;
    TextExtent largest;
};

/// @param origin position of the axis
/// @param size of the picture across the axis
/// @param extent room that the numbers need across the axis
Across AcrossX(double origin, std::int32_t size, std::int32_t extent) {
    const std::int64_t row = TruncateToInt32(origin);
    if (row < kTick) {
        const double from = std::fmax(origin, 0.0);
        const std::int64_t edge = std::max<std::int64_t>(row, 0) + kTick + 1;
        return {from, from + kTick - 1, edge, false, false, 0};
    }
    if (row + kNumberGap - 1 + extent > size) {
        const double from = std::fmin(origin, size - 1.0);
        return {from, from - kTick + 1, TruncateToInt32(from) - kTick, true, false, 0};
    }
    return {origin, origin - kTick + 1, row + kNumberGap - 1, false, true, row - kTick};
}

Across AcrossY(double origin, std::int32_t size, std::int32_t extent) {
    const std::int64_t column = TruncateToInt32(origin);
    if (column - kNumberGap - extent < 0) {
        const double from = std::fmax(origin, 0.0);
        const std::int64_t edge = std::max<std::int64_t>(column, 0) + kTick + 1;
        return {from, from + kTick - 1, edge, false, false, 0};
    }
    if (column + kTick > size) {
        const double from = std::fmin(origin, size - 1.0);
        return {from, from - kTick + 1, TruncateToInt32(from) - kTick, true, false, 0};
    }
    return {origin, origin + kTick - 1, column - kNumberGap, true, true, column + kTick + 1};
}

Across AcrossOf(const NumberPlaces& places, AxisOf axis, const TextExtent& largest) {
    const Viewport& viewport = places.viewport;
    if (axis == AxisOf::X)
        return AcrossX(viewport.view.OriginY, viewport.ClientHeight, largest.height);
    return AcrossY(viewport.view.OriginX, viewport.ClientWidth, largest.width);
}

bool PlaceLabel(NumberPlaces& places, AxisOf axis, const Across& across, double position,
                const std::u16string& text) {
    const TextExtent extent = ExtentOf(places, text);
    const std::int64_t pixel = TruncateToInt32(position);
    if (axis == AxisOf::X) {
        const std::int64_t top = across.isEnd ? across.edge - extent.height : across.edge;
        return Place(places, text, pixel - extent.width / 2, top);
    }
    const std::int64_t left = across.isEnd ? across.edge - extent.width : across.edge;
    return Place(places, text, left, pixel - extent.height / 2);
}

/// Above the end of the x axis; below the numbers where they stand at the upper edge.
bool PlaceOffsetX(NumberPlaces& places, const Across& across, const std::u16string& text) {
    const TextExtent extent = ExtentOf(places, text);
    std::int64_t top = across.edge - extent.height - extent.height;
    if (!across.isEnd)
        top = across.offsetOutside ? across.outside - extent.height : across.edge + extent.height;
    const std::int64_t right = places.viewport.ClientWidth - extent.width;
    return Place(places, text, right, top) || Place(places, text, 0, top);
}

/// Whether a text at these rows would stand at a mark and read as its number.
bool StandsAtMark(const std::vector<NiceMark>& marks, std::int64_t top, std::int64_t height) {
    return std::ranges::any_of(marks, [&](const NiceMark& mark) {
        const auto row = static_cast<double>(top);
        return mark.position > row - 1.0 && mark.position < row + static_cast<double>(height) + 1.0;
    });
}

/// At the upper end of the y axis; at the lower one in the left half of the picture, where the
/// names of the functions stand at the top. Nearer to the middle where that place is taken.
bool PlaceOffsetY(NumberPlaces& places, const Across& across, const Attempt& attempt) {
    const std::u16string& text = attempt.labels.offset;
    const TextExtent extent = ExtentOf(places, text);
    std::int64_t left = across.isEnd ? across.edge - extent.width : across.edge;
    if (across.offsetOutside) left = across.outside;
    const std::int64_t end = std::int64_t{places.viewport.ClientHeight} - extent.height;
    const bool atTop = left >= places.viewport.ClientWidth / 2;
    for (std::int64_t distance = 0; distance <= end; distance += 3) {
        const std::int64_t top = atTop ? distance : end - distance;
        if (!across.offsetOutside && StandsAtMark(attempt.marks, top, extent.height)) continue;
        if (Place(places, text, left, top)) return true;
    }
    return false;
}

bool PlaceOffset(NumberPlaces& places, AxisOf axis, const Across& across, const Attempt& attempt) {
    return axis == AxisOf::X ? PlaceOffsetX(places, across, attempt.labels.offset)
                             : PlaceOffsetY(places, across, attempt);
}

Attempt AttemptAt(const NumberPlaces& places, const AxisSpan& span, const NiceStep& step,
                  bool mayHaveOffset) {
    Attempt attempt;
    attempt.marks = MarksAt(span, step);
    attempt.labels = TextsOf(attempt.marks, step, mayHaveOffset);
    for (const std::u16string& text : attempt.labels.texts) {
        const TextExtent extent = ExtentOf(places, text);
        attempt.largest.width = std::max(attempt.largest.width, extent.width);
        attempt.largest.height = std::max(attempt.largest.height, extent.height);
    }
    return attempt;
}

bool AxesMeet(const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    return view.OriginX > -1.0 && view.OriginX < viewport.ClientWidth && view.OriginY > -1.0 &&
           view.OriginY < viewport.ClientHeight;
}

Segment TickAt(AxisOf axis, const Across& across, double position) {
    if (axis == AxisOf::X) return {{position, across.tickFrom}, {position, across.tickTo}};
    return {{across.tickFrom, position}, {across.tickTo, position}};
}

/// Nothing when there is an offset and no place for it: the numbers mean nothing without it.
std::optional<NiceNumbers> PlaceAttempt(NumberPlaces& places, AxisOf axis, const Attempt& attempt,
                                        const NiceStep& step) {
    const Across across = AcrossOf(places, axis, attempt.largest);
    const std::u16string& offset = attempt.labels.offset;
    NiceNumbers numbers{step, {}, 0};
    const bool meet = AxesMeet(places.viewport);
    for (std::size_t i = 0; i < attempt.marks.size(); ++i) {
        const NiceMark& mark = attempt.marks[i];
        if (mark.k == 0 && meet) continue;
        numbers.ticks.push_back(TickAt(axis, across, mark.position));
        const std::u16string& text = attempt.labels.texts[i];
        // A difference of 0 would read as the number 0. The offset is the number of that tick.
        if (!offset.empty() && text == u"0") continue;
        if (PlaceLabel(places, axis, across, mark.position, text)) ++numbers.count;
    }
    if (!offset.empty() && !PlaceOffset(places, axis, across, attempt)) return std::nullopt;
    return numbers;
}

std::optional<NiceNumbers> PlaceAtStep(NumberPlaces& places, AxisOf axis, const NiceStep& step,
                                       bool& fits) {
    const AxisSpan span = SpanOf(places.viewport, axis);
    const std::size_t before = places.texts.size();
    for (const bool mayHaveOffset : {true, false}) {
        const Attempt attempt = AttemptAt(places, span, step, mayHaveOffset);
        const std::int32_t along =
            axis == AxisOf::X ? attempt.largest.width + kNumberGap : attempt.largest.height;
        fits = along <= SpacingOf(span, step);
        if (auto numbers = PlaceAttempt(places, axis, attempt, step)) return numbers;
        KeepFirst(places, before);
    }
    return std::nullopt;
}

}  // namespace

AxisSpan SpanOf(const Viewport& viewport, AxisOf axis) {
    return axis == AxisOf::X ? SpanX(viewport) : SpanY(viewport);
}

NiceNumbers PlaceNiceNumbers(NumberPlaces& places, AxisOf axis) {
    const std::size_t before = places.texts.size();
    NiceStep step = StepFor(SpanOf(places.viewport, axis));
    NiceNumbers best{step, {}, 0};
    for (int attempt = 0; attempt < kMostAttempts; ++attempt, step = NextStep(step)) {
        bool fits = false;
        const auto numbers = PlaceAtStep(places, axis, step, fits);
        if (numbers && fits && numbers->count >= 2) return *numbers;
        if (numbers && numbers->count > best.count) best = *numbers;
        KeepFirst(places, before);
    }
    bool fits = false;
    if (best.count > 0) best = PlaceAtStep(places, axis, best.step, fits).value_or(best);
    return best;
}

}  // namespace kalvex
