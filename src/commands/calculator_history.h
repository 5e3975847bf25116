// The lines that were calculated in this run, to be recalled like those of a shell.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kalvex {

inline constexpr std::size_t kMostCalculated = 50;

struct CalculatorHistory {
    std::vector<std::u16string> entries;  ///< oldest first, at most kMostCalculated
    std::size_t place = 0;                ///< entry on the screen; entries.size(): the line below
    std::u16string draft;                 ///< the line that is being typed, below the last entry
};

/// Adds a line and goes below it. An empty line and one that equals the last entry are not added.
/// The oldest entry is removed when there are more than kMostCalculated.
void Remember(CalculatorHistory& history, std::u16string_view line);

/// Goes below the last entry with nothing typed.
void StartBelow(CalculatorHistory& history);

/// The entry before the present one, or nothing at the oldest. `shown` is what stands on the
/// screen: when it differs from the present entry it is kept as the line being typed.
[[nodiscard]] std::optional<std::u16string> OlderLine(CalculatorHistory& history,
                                                      std::u16string_view shown);

/// The entry after the present one; after the last entry the line being typed, and after that
/// nothing.
[[nodiscard]] std::optional<std::u16string> NewerLine(CalculatorHistory& history,
                                                      std::u16string_view shown);

}  // namespace kalvex
