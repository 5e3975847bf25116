// Where coordinate numbers stand: on the picture and clear of each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

inline constexpr std::int32_t kCoordinateHeight = 10;

/// Pixels between a number and its axis or its neighbour.
inline constexpr std::int32_t kNumberGap = 3;

/// The layer of numbers while it is laid out.
struct NumberPlaces {
    const Viewport& viewport;
    const MeasureText& measure;
    std::vector<TextRecord> texts;
    std::vector<TextExtent> extents;  ///< one for each text
};

[[nodiscard]] TextExtent ExtentOf(const NumberPlaces& places, const std::u16string& text);

/// Places a text with its top left corner at (left, top). False when it would be cut by an edge or
/// would touch another text; nothing is placed then.
bool Place(NumberPlaces& places, const std::u16string& text, std::int64_t left, std::int64_t top);

/// Takes away the texts that were placed after the first `count` ones.
void KeepFirst(NumberPlaces& places, std::size_t count);

}  // namespace kalvex
