// The shared records: one function line, its samples and points, the nine lines together.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "expr/evaluator.h"
#include "interp/approx_parameters.h"
#include "interp/point_table.h"
#include "resources/strings.h"

namespace kalvex {

/// Stored codes. None (0) means that no type was set yet.
enum class EquationType : std::int32_t {
    None = 0,
    Polar = 1,
    Decart = 2,
    Parametric = 3,
    File = 4,
    Implicit = 5
};

/// One plotted sample.
struct CurveSample {
    std::int32_t column = 0;  ///< logical pixels; (0, 0) marks an unplotted sample
    std::int32_t row = 0;
    double x = 0.0;  ///< world coordinates
    double y = 0.0;
    double parameter = 0.0;   ///< angle (radians) or t; 0 for the other types
    std::int32_t status = 0;  ///< EvalError code of the sample, 0 when it is good
};

/// The samples of one line as its last drawing left them; trace, automatic zoom and analysis read
/// them. An implicit curve has none.
using SampleCache = std::vector<CurveSample>;

/// The pixel of a point, the centre of its circle; logical pixels.
struct PointPixel {
    std::int32_t column = 0;
    std::int32_t row = 0;
};

/// One function line. Compiled forms: index 0 is the expression (of `Parametric`: X), 1 is Y.
struct FunctionEntry {
    /// Any stored number is kept; one that is no EquationType is never drawn.
    EquationType type = EquationType::None;
    std::int32_t color = 0;  ///< 1..9, index into the colour table
    std::u16string text;     ///< the line as typed; of a File its name without the path
    std::u16string workingText;
    std::u16string yText;
    std::array<CompiledExpression, 2> compiled;
    SampleCache samples;
    std::uint8_t selected = 0;
    PointTable points;                    ///< of a File
    std::vector<PointPixel> pointPixels;  ///< one per point, from the last redraw
    ApproxParameters method;              ///< of a File
};

inline constexpr int kSlotCount = 9;

using FunctionList = std::array<FunctionEntry, kSlotCount>;

/// What stands in the nine edit lines, by slot.
using EditorLines = std::array<std::u16string, kSlotCount>;

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

struct NamedColor {
    std::u16string_view name;  ///< its name in the arguments of the tool
    StringId word{};           ///< the menu word
    Rgb rgb;
};

/// Indexed by `color` - 1.
inline constexpr std::array<NamedColor, 9> kColorTable = {{
    {u"Red", StringId::ColourRed, {255, 0, 0}},
    {u"Orange", StringId::ColourOrange, {255, 165, 0}},
    {u"Violet", StringId::ColourViolet, {138, 43, 226}},
    {u"Green", StringId::ColourGreen, {50, 205, 50}},
    {u"Blue", StringId::ColourBlue, {0, 0, 255}},
    {u"Magenta", StringId::ColourMagenta, {255, 0, 255}},
    {u"Cyan", StringId::ColourCyan, {0, 255, 255}},
    {u"Black", StringId::ColourBlack, {0, 0, 0}},
    // KEEP: the ninth word is "Great" and the colour a dark grey; settings and menus rely on it.
    {u"Great", StringId::ColourGreat, {105, 105, 105}},
}};

/// The colour of an index 1..9; black for any other index.
[[nodiscard]] constexpr Rgb ColorOf(std::int32_t color) {
    return color >= 1 && color <= 9 ? kColorTable[static_cast<std::size_t>(color - 1)].rgb : Rgb{};
}

}  // namespace kalvex
