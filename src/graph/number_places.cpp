// Two texts touch when there is less than the gap between them in a line, or when they are in lines
// that overlap.
#include "graph/number_places.h"

namespace kalvex {
namespace {

bool Touch(const TextRecord& a, const TextExtent& sizeOfA, const TextRecord& b,
           const TextExtent& sizeOfB) {
    return a.x < b.x + sizeOfB.width + kNumberGap && b.x < a.x + sizeOfA.width + kNumberGap &&
           a.y < b.y + sizeOfB.height && b.y < a.y + sizeOfA.height;
}

}  // namespace

TextExtent ExtentOf(const NumberPlaces& places, const std::u16string& text) {
    return places.measure(text, kCoordinateHeight);
}

bool Place(NumberPlaces& places, const std::u16string& text, std::int64_t left, std::int64_t top) {
    const TextExtent extent = ExtentOf(places, text);
    if (left < 0 || top < 0 || left + extent.width > places.viewport.ClientWidth ||
        top + extent.height > places.viewport.ClientHeight)
        return false;
    const TextRecord record{static_cast<std::int32_t>(left),
                            static_cast<std::int32_t>(top),
                            text,
                            {0, 0, 0},
                            kCoordinateHeight};
    for (std::size_t i = 0; i < places.texts.size(); ++i)
        if (Touch(record, extent, places.texts[i], places.extents[i])) return false;
    places.texts.push_back(record);
    places.extents.push_back(extent);
    return true;
}

void KeepFirst(NumberPlaces& places, std::size_t count) {
    places.texts.resize(count);
    places.extents.resize(count);
}

}  // namespace kalvex
