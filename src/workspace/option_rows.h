// The options as a table: one row says how an option is stored, how the Options dialog shows it and
// how the command-line tool sets it. Everything that handles options reads these rows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "resources/strings.h"
#include "workspace/options.h"

namespace kalvex {

/// The field of an option.
using OptionField =
    std::variant<std::uint8_t Options::*, std::int32_t Options::*, double Options::*>;

/// What an option holds and how it is stored.
enum class OptionKind {
    Flag,       ///< 0 or 1; any other stored number counts as 1
    GridKind,   ///< 0, 1 or 2; any other stored number counts as 1
    Number,     ///< a whole number, loaded as it is stored
    WriteOnly,  ///< a whole number that is stored and never loaded
    Range       ///< a text with six decimals, stored together with the view
};

/// One entry of a list: its text and the number that it stands for.
struct OptionChoice {
    StringId word{};  ///< empty: the number is a text size, and the text is made from it
    std::int32_t number = 0;
};

enum class ControlKind {
    CheckBox,
    GraphBox,  ///< a check box in the group "Show on graph window"
    List,
    HiddenList,
    NumberField
};

/// The control of an option in the Options dialog.
struct OptionControl {
    int place = 0;  ///< in the order of the focus; 0: the option has no control
    ControlKind kind = ControlKind::CheckBox;
    const char* name = "";  ///< the object name of the control
    int id = 0;             ///< the control's number
    StringId text = {};     ///< caption, "~~", tip
    std::span<const OptionChoice> choices = {};
    int captionId = 0;  ///< the number of the caption in front of it; 0: no caption
};

/// The option of the command-line tool that sets an option of the program.
struct ToolFlag {
    int place = 0;  ///< in the tool's help; 0: the tool cannot set the option
    std::string_view name = {};
    std::string_view help = {};
    std::string_view value = {};  ///< the word for its value; empty: a flag, which has none
    std::int32_t largest = 0;     ///< the largest whole number that it takes; the smallest is 1
    std::int32_t flagSets = 0;    ///< the number that a flag sets
};

struct OptionRow {
    std::string_view name;  ///< of the stored value; its spelling is part of the format
    OptionField field;
    OptionKind kind = OptionKind::Flag;
    int saved = 0;  ///< place in the order in which `Save` stores the options; 0: not stored by it
    OptionControl control = {};
    ToolFlag tool = {};
    /// Stores of earlier versions do not have the value. When it is missing, the option gets its
    /// default, and nothing is reported.
    bool mayBeMissing = false;
};

/// The place of the box "Polar grid" in the order of the dialog. It has no row: together with the
/// box of `Setka` it makes that option.
inline constexpr int kPolarGridPlace = 13;

inline constexpr std::array<OptionChoice, 2> kLineWidths = {
    {{StringId::OnePixel, 1}, {StringId::TwoPixels, 2}}};

/// Multiples of 2 pi.
inline constexpr std::array<OptionChoice, 4> kMaxAngles = {
    {{StringId::TwoPi, 1}, {StringId::FourPi, 2}, {StringId::SixPi, 3}, {StringId::EightPi, 4}}};

inline constexpr std::array<OptionChoice, 2> kInterpolations = {
    {{StringId::Linear, 0}, {StringId::Quadratic, 1}}};

inline constexpr std::array<OptionChoice, 4> kResolutions = {{{StringId::OnePoint, 1},
                                                              {StringId::TwoPoints, 2},
                                                              {StringId::FourPoints, 4},
                                                              {StringId::FivePoints, 5}}};

/// 8 to 29.
inline constexpr std::array<OptionChoice, 22> kTextSizes = [] {
    std::array<OptionChoice, 22> sizes;
    for (std::size_t i = 0; i < sizes.size(); ++i)
        sizes[i].number = static_cast<std::int32_t>(i) + 8;
    return sizes;
}();

/// In the order in which they are loaded and created. The default of an option is the initial value
/// of its field. CMake reads the tool's flags from this file for the completions of the shells.
inline constexpr std::array kOptionRows = std::to_array<OptionRow>({
    {.name = "Axex",
     .field = &Options::Axex,
     .saved = 1,
     .control = {11, ControlKind::GraphBox, "axes", 1020, StringId::OptionAxes},
     .tool = {6, "--no-axes", "Leave the axes out."}},
    {.name = "ColorText",
     .field = &Options::ColorText,
     .saved = 6,
     .control = {6, ControlKind::CheckBox, "colours", 1049, StringId::OptionColours}},
    {.name = "Diff",
     .field = &Options::Diff,
     .saved = 5,
     .control = {10, ControlKind::GraphBox, "derivative", 1023, StringId::OptionDerivative}},
    {.name = "Coord",
     .field = &Options::Coord,
     .saved = 4,
     .control = {8, ControlKind::GraphBox, "coords", 1022, StringId::OptionCoords},
     .tool = {8, "--no-coords", "Leave the coordinate numbers out."}},
    {.name = "Setka",
     .field = &Options::Setka,
     .kind = OptionKind::GridKind,
     .saved = 3,
     .control = {9, ControlKind::GraphBox, "grid", 1021, StringId::OptionGrid},
     .tool = {7, "--no-grid", "Leave the grid out."}},
    {.name = "Label",
     .field = &Options::Label,
     .saved = 2,
     .control = {7, ControlKind::GraphBox, "labels", 1019, StringId::OptionLabels},
     .tool = {9, "--no-labels", "Leave the function names out."}},
    {.name = "Screen", .field = &Options::Screen, .kind = OptionKind::Number},
    {.name = "TextSize",
     .field = &Options::TextSize,
     .kind = OptionKind::Number,
     .saved = 7,
     .control = {3, ControlKind::List, "textSize", 1071, StringId::OptionTextSize, kTextSizes},
     .tool = {4, "--text-size", "Height of the function names in pixels, 1 to 200 (default 14).",
              "N", kTallestText}},
    {.name = "InterpolationType",
     .field = &Options::InterpolationType,
     .kind = OptionKind::Number,
     .saved = 9,
     .control = {12, ControlKind::HiddenList, "interpolation", 1052, StringId::OptionInterpolation,
                 kInterpolations}},
    {.name = "Wight",
     .field = &Options::Wight,
     .kind = OptionKind::Number,
     .saved = 8,
     .control = {1, ControlKind::List, "lineWidth", 1036, StringId::OptionLineWidth, kLineWidths,
                 1079},
     .tool = {3, "--width",
              "Pen width of the curves in pixels, 1 to 64 (default 1; implicit curves have 1).",
              "N", kWidestPen}},
    {.name = "MaxAngle",
     .field = &Options::MaxAngle,
     .kind = OptionKind::Number,
     .saved = 11,
     .control = {2, ControlKind::List, "maxAngle", 1037, StringId::OptionMaxAngle, kMaxAngles},
     .tool = {1, "--max-angle", "Turns of a polar curve, 1 to 4 (default 1).", "N", 4}},
    {.name = "Resolution",
     .field = &Options::Resolution,
     .kind = OptionKind::WriteOnly,
     .saved = 10,
     .control = {.choices = kResolutions}},
    {.name = "MinParam",
     .field = &Options::MinParam,
     .kind = OptionKind::Range,
     .control = {4, ControlKind::NumberField, "minParam", 1000, StringId::OptionMinParam},
     .tool = {2, "--param", "Parameter range of parametric curves (default 0 and 2 pi).",
              "MIN,MAX"}},
    {.name = "MaxParam",
     .field = &Options::MaxParam,
     .kind = OptionKind::Range,
     .control = {5, ControlKind::NumberField, "maxParam", 1001, StringId::OptionMaxParam}},
    {.name = "FineGrid",
     .field = &Options::FineGrid,
     .saved = 12,
     .control = {14, ControlKind::GraphBox, "fineGrid", 1080, StringId::OptionFineGrid},
     .tool = {10,
              "--fine-grid",
              "Draw grid lines at the steps of the numbers, and finer ones.",
              {},
              0,
              1},
     .mayBeMissing = true},
    {.name = "Smooth",
     .field = &Options::Smooth,
     .saved = 13,
     .control = {15, ControlKind::GraphBox, "smooth", 1081, StringId::OptionSmooth},
     .tool = {11, "--pixels", "Draw a .png picture pixel by pixel, as a .bmp is."},
     .mayBeMissing = true},
});

/// The place of an option in the table; the size of the table for a field that has no row.
[[nodiscard]] constexpr std::size_t OptionIndex(const OptionField& field) {
    std::size_t index = 0;
    while (index < kOptionRows.size() && kOptionRows[index].field != field)
        ++index;
    return index;
}

/// The rows that have a place in one of the orders, in that order.
/// @param placeOf the place of a row (1, 2, ...), 0 for a row that is not in the order
[[nodiscard]] std::vector<const OptionRow*> RowsInOrder(int (*placeOf)(const OptionRow& row));

[[nodiscard]] inline int PlaceInSave(const OptionRow& row) {
    return row.saved;
}
[[nodiscard]] inline int PlaceInDialog(const OptionRow& row) {
    return row.control.place;
}
[[nodiscard]] inline int PlaceInTool(const OptionRow& row) {
    return row.tool.place;
}

/// The value of an option as a number.
[[nodiscard]] double ValueOf(const Options& options, const OptionRow& row);

/// The whole number that is stored for an option: its value cut to 32 bits.
[[nodiscard]] std::int32_t StoredNumberOf(const Options& options, const OptionRow& row);

/// Sets an option. The value must fit into its field.
void SetValue(Options& options, const OptionRow& row, double value);

/// The text of a list entry: "2 pi", "14 pt".
[[nodiscard]] std::u16string ChoiceText(const OptionChoice& choice);

}  // namespace kalvex
