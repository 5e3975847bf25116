// The options as they stand in their dialog, and what saving them does.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "commands/number_input.h"
#include "resources/strings.h"
#include "settings/registry.h"
#include "workspace/option_rows.h"

namespace kalvex {

/// What the control of one option shows.
struct ControlState {
    bool checked = false;  ///< of a check box
    std::u16string text;   ///< of a field or a list; empty for a list without a chosen entry
};

/// What the controls of the dialog show.
struct OptionsInput {
    std::array<ControlState, kOptionRows.size()> controls;  ///< in the order of the table
    bool polarGrid = false;  ///< the box "Polar grid": with "Grid" it makes one option
};

/// The state of the control of an option.
[[nodiscard]] ControlState& ControlOf(OptionsInput& input, const OptionField& field);
[[nodiscard]] const ControlState& ControlOf(const OptionsInput& input, const OptionField& field);

/// The dialog as it opens. A number that a list does not offer (a damaged store) leaves the list
/// without a chosen entry.
[[nodiscard]] OptionsInput InputOf(const Options& options);

/// The kind of grid for the two boxes: 0 without a grid, whatever the second box says.
[[nodiscard]] std::uint8_t GridKindOf(bool grid, bool polarGrid);

/// Whether a range of parameters can be taken: its minimum is below its maximum, and neither is
/// not-a-number.
[[nodiscard]] bool IsParameterRange(double minParam, double maxParam);

/// `Save`: takes check boxes and lists into `options` and stores them one by one, then takes the
/// range of parameters. A refused range gives the reason; everything else has been taken and stored
/// all the same. A list without a chosen entry leaves its option unchanged. A text of the range
/// that does not begin with a number reads as 0. Failures of the store are silent, and the next
/// option is stored all the same.
[[nodiscard]] std::optional<InputProblem> SaveOptions(const OptionsInput& input, Options& options,
                                                      const Registry& registry);

}  // namespace kalvex
