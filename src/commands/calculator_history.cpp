// Entries never change. When the user alters an entry that was recalled, the altered text is the
// line being typed, which stands below the last entry.
#include "commands/calculator_history.h"

namespace kalvex {
namespace {

void KeepTyped(CalculatorHistory& history, std::u16string_view shown) {
    const bool below = history.place >= history.entries.size();
    if (below || shown != history.entries[history.place]) history.draft = shown;
}

}  // namespace

void Remember(CalculatorHistory& history, std::u16string_view line) {
    std::vector<std::u16string>& entries = history.entries;
    const bool again = !entries.empty() && entries.back() == line;
    if (!line.empty() && !again) entries.emplace_back(line);
    if (entries.size() > kMostCalculated) entries.erase(entries.begin());
    StartBelow(history);
}

void StartBelow(CalculatorHistory& history) {
    history.place = history.entries.size();
    history.draft.clear();
}

std::optional<std::u16string> OlderLine(CalculatorHistory& history, std::u16string_view shown) {
    if (history.place == 0) return std::nullopt;
    KeepTyped(history, shown);
    --history.place;
    return history.entries[history.place];
}

std::optional<std::u16string> NewerLine(CalculatorHistory& history, std::u16string_view shown) {
    if (history.place >= history.entries.size()) return std::nullopt;
    KeepTyped(history, shown);
    ++history.place;
    return history.place == history.entries.size() ? history.draft : history.entries[history.place];
}

}  // namespace kalvex
