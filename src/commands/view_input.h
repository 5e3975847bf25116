// What is typed into the View Window and the Factor dialog.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "commands/number_input.h"
#include "workspace/view_window.h"

namespace kalvex {

/// Names of the fields in the order of the dialogs, as labels and messages call them.
[[nodiscard]] std::array<std::u16string_view, 4> BoundNames();
[[nodiscard]] std::array<std::u16string_view, 2> FactorNames();

/// Sets the four bounds (Xmin, Xmax, Ymin, Ymax), or none of them: each must be a finite number,
/// the two of an axis must differ; reversed ones give a mirrored picture. Blanks around a number
/// are skipped.
[[nodiscard]] std::optional<InputProblem> ReadBounds(const std::array<std::u16string, 4>& texts,
                                                     ViewWindow& view);

/// Sets both factors, or none: finite numbers above 0.
[[nodiscard]] std::optional<InputProblem> ReadFactors(const std::array<std::u16string, 2>& texts,
                                                      ViewWindow& view);

}  // namespace kalvex
