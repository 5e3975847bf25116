// The display options as they stand in their dialog, and what saving them does.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "commands/number_input.h"
#include "resources/strings.h"
#include "settings/registry.h"
#include "workspace/options.h"

namespace kalvex {

/// One entry of a list: its text and the number that it stands for.
struct OptionChoice {
    StringId word{};
    std::int32_t number = 0;
};

inline constexpr std::array<OptionChoice, 2> kLineWidths = {
    {{StringId::OnePixel, 1}, {StringId::TwoPixels, 2}}};

/// Multiples of 2 pi.
inline constexpr std::array<OptionChoice, 4> kMaxAngles = {
    {{StringId::TwoPi, 1}, {StringId::FourPi, 2}, {StringId::SixPi, 3}, {StringId::EightPi, 4}}};

inline constexpr std::array<OptionChoice, 2> kInterpolations = {
    {{StringId::Linear, 0}, {StringId::Quadratic, 1}}};

inline constexpr std::int32_t kLeastTextSize = 8;
inline constexpr std::int32_t kLargestTextSize = 29;

/// The list entry of a text size: "14 pt".
std::u16string TextSizeText(std::int32_t size);

/// What the controls of the dialog show. A list without a chosen entry has an empty text.
struct OptionsInput {
    bool axes = false;
    bool labels = false;
    bool grid = false;
    bool polarGrid = false;
    bool coords = false;
    bool derivative = false;
    bool colours = false;
    std::u16string lineWidth;
    std::u16string maxAngle;
    std::u16string textSize;
    std::u16string interpolation;
    std::u16string minParam;
    std::u16string maxParam;
};

/// The dialog as it opens. A number that a list does not offer (a damaged store) leaves the list
/// without a chosen entry.
OptionsInput InputOf(const Options& options);

/// The grid kind of the two boxes: 0 without a grid, whatever the second box says.
std::uint8_t GridKindOf(bool grid, bool polarGrid);

/// Whether a range of parameters can be taken: neither empty nor reversed, no not-a-number.
bool IsParameterRange(double minParam, double maxParam);

/// `Save`: takes flags and lists into `options` and stores them one by one, then takes the range of
/// parameters. When the range is refused (the result says why), everything else has been taken and
/// stored all the same. A list without a chosen entry leaves its number alone; a range text that
/// begins with no number reads as 0. Failures of the store are silent and stop nothing.
std::optional<InputProblem> SaveOptions(const OptionsInput& input, Options& options,
                                        const Registry& registry);

}  // namespace kalvex
