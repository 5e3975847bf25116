// Saving goes through the dialog in a fixed order and stores each value as it is taken, so what
// stood before a refusal is kept. The range of parameters comes last and is not stored here: it
// reaches the store together with the view, when the graph is left.
#include "commands/options_input.h"

#include <algorithm>
#include <span>

#include "base/encoding.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace kalvex {
namespace {

constexpr std::array<OptionChoice, 4> kResolutions = {{{StringId::OnePoint, 1},
                                                       {StringId::TwoPoints, 2},
                                                       {StringId::FourPoints, 4},
                                                       {StringId::FivePoints, 5}}};

constexpr std::size_t kMaxParamField = 1;

std::u16string TextOfNumber(std::span<const OptionChoice> choices, double number) {
    const auto found = std::find_if(choices.begin(), choices.end(), [&](const OptionChoice& one) {
        return static_cast<double>(one.number) == number;
    });
    return found == choices.end() ? std::u16string() : std::u16string(Text(found->word));
}

/// Nothing for a text that is none of the entries.
std::optional<std::int32_t> NumberOfText(std::span<const OptionChoice> choices,
                                         std::u16string_view text) {
    const auto found = std::ranges::find(
        choices, text, [](const OptionChoice& choice) { return Text(choice.word); });
    if (found == choices.end()) return std::nullopt;
    return found->number;
}

std::int32_t SizeOfText(std::u16string_view text, std::int32_t present) {
    for (std::int32_t size = kLeastTextSize; size <= kLargestTextSize; ++size) {
        if (TextSizeText(size) == text) return size;
    }
    return present;
}

void SaveFlags(const OptionsInput& input, Options& options, const Registry& registry) {
    const auto save = [&](std::uint8_t value, std::uint8_t& option, std::string_view name) {
        option = value;
        StoreOption(registry, name, option);
    };
    save(input.axes, options.Axex, "Axex");
    save(input.labels, options.Label, "Label");
    save(GridKindOf(input.grid, input.polarGrid), options.Setka, "Setka");
    save(input.coords, options.Coord, "Coord");
    save(input.derivative, options.Diff, "Diff");
    save(input.colours, options.ColorText, "ColorText");
}

void SaveLists(const OptionsInput& input, Options& options, const Registry& registry) {
    options.Wight = NumberOfText(kLineWidths, input.lineWidth).value_or(options.Wight);
    options.InterpolationType =
        NumberOfText(kInterpolations, input.interpolation).value_or(options.InterpolationType);
    options.TextSize = SizeOfText(input.textSize, options.TextSize);
    StoreOption(registry, "TextSize", options.TextSize);
    StoreOption(registry, "Wight", options.Wight);
    StoreOption(registry, "InterpolationType", options.InterpolationType);
    // KEEP: looked up in the text of the interpolation list, which is never one of these, so the
    // resolution keeps its value and is stored with it. Stores of other versions rest on that.
    options.Resolution =
        NumberOfText(kResolutions, input.interpolation).value_or(options.Resolution);
    StoreOption(registry, "Resolution", options.Resolution);
    if (const auto angle = NumberOfText(kMaxAngles, input.maxAngle)) options.MaxAngle = *angle;
    StoreOption(registry, "MaxAngle", TruncateToInt32(options.MaxAngle));
}

// KEEP: what is not a number reads as 0, and six decimals are all that comes back of a range.
std::optional<InputProblem> TakeParameters(const OptionsInput& input, Options& options) {
    const double least = ParseDecimalPrefix(input.minParam).value;
    const double largest = ParseDecimalPrefix(input.maxParam).value;
    if (!IsParameterRange(least, largest))
        return InputProblem{kMaxParamField, std::u16string(Text(StringId::ParameterRange))};
    options.MinParam = least;
    options.MaxParam = largest;
    return std::nullopt;
}

}  // namespace

std::u16string TextSizeText(std::int32_t size) {
    return FillIn(Text(StringId::TextSizeFormat), {NumberText(size), Text(StringId::TextSizeUnit)});
}

OptionsInput InputOf(const Options& options) {
    OptionsInput input;
    input.axes = options.Axex != 0;
    input.labels = options.Label != 0;
    input.grid = options.Setka != 0;
    input.polarGrid = options.Setka == 2;
    input.coords = options.Coord != 0;
    input.derivative = options.Diff != 0;
    input.colours = options.ColorText != 0;
    input.lineWidth = TextOfNumber(kLineWidths, options.Wight);
    input.maxAngle = TextOfNumber(kMaxAngles, options.MaxAngle);
    if (options.TextSize >= kLeastTextSize && options.TextSize <= kLargestTextSize)
        input.textSize = TextSizeText(options.TextSize);
    input.interpolation = TextOfNumber(kInterpolations, options.InterpolationType);
    input.minParam = Widen(FormatFixed(options.MinParam));
    input.maxParam = Widen(FormatFixed(options.MaxParam));
    return input;
}

std::uint8_t GridKindOf(bool grid, bool polarGrid) {
    if (!grid) return 0;
    return polarGrid ? 2 : 1;
}

bool IsParameterRange(double minParam, double maxParam) {
    return minParam < maxParam;
}

std::optional<InputProblem> SaveOptions(const OptionsInput& input, Options& options,
                                        const Registry& registry) {
    WriteTogether(registry, [&] {
        SaveFlags(input, options, registry);
        SaveLists(input, options, registry);
        return true;
    });
    return TakeParameters(input, options);
}

}  // namespace kalvex
