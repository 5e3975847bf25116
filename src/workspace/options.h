// The display settings. Field names are the registry value names, spelling included.
#pragma once

#include <algorithm>
#include <cstdint>

namespace kalvex {

struct Options {
    std::uint8_t Axex = 1;       ///< axes with ticks
    std::uint8_t ColorText = 1;  ///< function labels of the editor in their colours
    std::uint8_t Diff = 1;       ///< derivative in trace mode
    std::uint8_t Coord = 1;      ///< coordinate numbers
    std::uint8_t Setka = 1;      ///< grid: 0 off, 1 rectangular, 2 polar
    std::uint8_t Label = 1;      ///< function names on the graph
    std::int32_t Screen = 0;     ///< number of the next exported picture
    std::int32_t TextSize = 14;  ///< height of the function names, pixels
    std::int32_t InterpolationType = 0;
    std::int32_t Wight = 1;       ///< pen width of the curves, pixels
    double MaxAngle = 1.0;        ///< polar range in multiples of 2 pi
    std::int32_t Resolution = 1;  ///< written, never read back
    double MinParam = 0.0;        ///< parameter range of Parametric curves
    double MaxParam = 6.283185307179586;
    std::uint8_t FineGrid =
        0;  ///< the rectangular grid at the steps of the numbers, with finer lines
    std::uint8_t Smooth = 1;  ///< curves at their true positions with soft edges
};

inline constexpr std::int32_t kWidestPen = 64;     ///< largest `Wight` that is drawn
inline constexpr std::int32_t kTallestText = 200;  ///< largest `TextSize` that is drawn

/// The width of the pen for `Wight`, 1 to kWidestPen pixels. The stored number may be any.
[[nodiscard]] constexpr std::int32_t PenWidthOf(const Options& options) {
    return std::clamp<std::int32_t>(options.Wight, 1, kWidestPen);
}

/// The height of the texts for `TextSize`, 1 to kTallestText pixels. The stored number may be any.
[[nodiscard]] constexpr std::int32_t TextHeightOf(const Options& options) {
    return std::clamp<std::int32_t>(options.TextSize, 1, kTallestText);
}

}  // namespace kalvex
