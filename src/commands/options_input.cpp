// `Save` takes and stores one option after the other, so what came before a refused range is kept.
// The range comes last and is not stored here: it is stored together with the view, when the user
// leaves the graph.
#include "commands/options_input.h"

#include <algorithm>
#include <span>

#include "base/encoding.h"
#include "numbers/decimal.h"
#include "resources/strings.h"
#include "settings/settings.h"

namespace kalvex {
namespace {

constexpr std::size_t kMaxParamField = 1;

std::u16string TextOfNumber(std::span<const OptionChoice> choices, double number) {
    const auto found = std::ranges::find_if(choices, [number](const OptionChoice& choice) {
        return static_cast<double>(choice.number) == number;
    });
    return found == choices.end() ? std::u16string() : ChoiceText(*found);
}

/// The number of the entry with this text; nothing when no entry has it.
std::optional<std::int32_t> NumberOfText(std::span<const OptionChoice> choices,
                                         const std::u16string& text) {
    const auto found = std::ranges::find(choices, text, ChoiceText);
    if (found == choices.end()) return std::nullopt;
    return found->number;
}

ControlState StateOf(const OptionRow& row, const Options& options) {
    const double value = ValueOf(options, row);
    switch (row.kind) {
        case OptionKind::Flag:
        case OptionKind::GridKind:
            return {value != 0.0, {}};
        case OptionKind::Number:
            return {false, TextOfNumber(row.control.choices, value)};
        case OptionKind::Range:
            return {false, Widen(FormatFixed(value))};
        case OptionKind::WriteOnly:
            break;
    }
    return {};
}

/// What the dialog says about an option; nothing when it leaves the option unchanged.
std::optional<std::int32_t> NumberOf(const OptionRow& row, const OptionsInput& input) {
    const ControlState& control = ControlOf(input, row.field);
    switch (row.kind) {
        case OptionKind::Flag:
            return control.checked ? 1 : 0;
        case OptionKind::GridKind:
            return GridKindOf(control.checked, input.polarGrid);
        case OptionKind::Number:
            return NumberOfText(row.control.choices, control.text);
        case OptionKind::WriteOnly:
            // KEEP: the resolution is looked up with the text of the interpolation list. That text
            // is never one of a resolution, so the option keeps its value and is stored with it.
            // The stores of other versions rely on this.
            return NumberOfText(row.control.choices,
                                ControlOf(input, &Options::InterpolationType).text);
        case OptionKind::Range:
            break;
    }
    return std::nullopt;
}

// KEEP: a text that is not a number reads as 0. An untouched range comes back with six decimals.
std::optional<InputProblem> TakeParameters(const OptionsInput& input, Options& options) {
    const auto value = [&](const OptionField& field) {
        return ParseDecimalPrefix(ControlOf(input, field).text).value;
    };
    const double least = value(&Options::MinParam);
    const double largest = value(&Options::MaxParam);
    if (!IsParameterRange(least, largest))
        return InputProblem{kMaxParamField, std::u16string(Text(StringId::ParameterRange))};
    options.MinParam = least;
    options.MaxParam = largest;
    return std::nullopt;
}

}  // namespace

ControlState& ControlOf(OptionsInput& input, const OptionField& field) {
    return input.controls.at(OptionIndex(field));
}

const ControlState& ControlOf(const OptionsInput& input, const OptionField& field) {
    return input.controls.at(OptionIndex(field));
}

OptionsInput InputOf(const Options& options) {
    OptionsInput input;
    for (const OptionRow& row : kOptionRows)
        ControlOf(input, row.field) = StateOf(row, options);
    input.polarGrid = options.Setka == 2;
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
    // Failures of the store are silent here, see the header.
    const auto takeAndStore = [&] {
        for (const OptionRow* const row : RowsInOrder(PlaceInSave)) {
            if (const auto number = NumberOf(*row, input)) SetValue(options, *row, *number);
            static_cast<void>(StoreOption(registry, row->name, StoredNumberOf(options, *row)));
        }
        return true;
    };
    static_cast<void>(WriteTogether(registry, takeAndStore));
    return TakeParameters(input, options);
}

}  // namespace kalvex
