// The lines that were calculated in this run, as a shell keeps its own.
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

/// Adds a line and goes below it; an empty one and one that equals the last are not added. The
/// oldest one goes when there are too many.
void Remember(CalculatorHistory& history, std::u16string_view line);

/// Goes below the last entry with nothing typed.
void StartBelow(CalculatorHistory& history);

/// The entry before the present one, or nothing at the oldest. `shown` is what stands on the
/// screen: when it is not the present entry it is the line being typed and is kept below.
std::optional<std::u16string> OlderLine(CalculatorHistory& history, std::u16string_view shown);

/// The entry behind the present one, behind the last the line being typed; nothing below that.
std::optional<std::u16string> NewerLine(CalculatorHistory& history, std::u16string_view shown);

}  // namespace kalvex
