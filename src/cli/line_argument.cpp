// The part before the first ":" is split at its commas; everything behind it is the line, so that a
// line may hold commas, equal signs and further colons.
#include "cli/line_argument.h"

#include <limits>
#include <optional>

#include "base/encoding.h"
#include "cli/number_argument.h"

namespace kalvex {
namespace {

std::optional<EquationType> ParseType(std::string_view word) {
    if (word == "polar") return EquationType::Polar;
    if (word == "decart") return EquationType::Decart;
    if (word == "parametric") return EquationType::Parametric;
    if (word == "file") return EquationType::File;
    if (word == "implicit") return EquationType::Implicit;
    return std::nullopt;
}

std::optional<std::int64_t> ParseColor(std::string_view value) {
    for (std::size_t i = 0; i < kColorTable.size(); ++i) {
        if (value == ToUtf8(kColorTable[i].name)) return static_cast<std::int64_t>(i + 1);
    }
    return ParseWhole(value, 1, static_cast<std::int64_t>(kColorTable.size()));
}

struct Key {
    std::string_view name;
    std::string values;
};

/// "0 to 12", or "a whole number" when any is taken.
std::string WholeNumberText(std::int32_t lowest, std::int32_t highest) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (lowest == Limits::min() && highest == Limits::max()) return "a whole number";
    return std::to_string(lowest) + " to " + std::to_string(highest);
}

std::vector<Key> Keys() {
    std::vector<Key> keys = {
        {"color", "1 to 9, Red, Orange, Violet, Green, Blue, Magenta, Cyan, Black or Great"}};
    for (const auto& whole : kWholeParameters)
        keys.push_back({whole.name, WholeNumberText(whole.lowest, whole.highest)});
    for (const auto& real : kRealParameters)
        keys.push_back({real.name, "a number"});
    return keys;
}

/// The message for a setting that is not accepted: the key is unknown, or the value does not fit
/// it.
std::string ProblemWith(std::string_view setting) {
    const std::string_view name = setting.substr(0, setting.find('='));
    std::string names;
    for (const Key& key : Keys()) {
        if (key.name == name)
            return std::string(name) + "=" + std::string(key.values) + " expected, got " +
                   std::string(setting);
        names += (names.empty() ? "" : ", ") + std::string(key.name);
    }
    return "no such setting: " + std::string(setting) + " (there are " + names + ")";
}

template <typename Field, typename Value>
bool Store(Field& field, const std::optional<Value>& value) {
    if (value) field = static_cast<Field>(*value);
    return value.has_value();
}

bool ApplyKey(FunctionEntry& entry, std::string_view key, std::string_view value) {
    if (key == "color") return Store(entry.color, ParseColor(value));
    for (const auto& whole : kWholeParameters)
        if (key == whole.name)
            return Store(entry.method.*whole.field, ParseWhole(value, whole.lowest, whole.highest));
    for (const auto& real : kRealParameters)
        if (key == real.name) return Store(entry.method.*real.field, ParseNumber(value));
    return false;
}

}  // namespace

LineArgument ParseLineArgument(std::string_view argument, std::int32_t defaultColor) {
    LineArgument result;
    const std::size_t colon = argument.find(':');
    if (colon == std::string_view::npos) {
        result.error = "TYPE:TEXT expected, got " + std::string(argument);
        return result;
    }
    const std::vector<std::string_view> head = Split(argument.substr(0, colon), ',');
    const std::optional<EquationType> type = ParseType(head[0]);
    if (!type) {
        result.error =
            "polar, decart, parametric, file or implicit expected, got " + std::string(head[0]);
        return result;
    }
    result.entry.type = *type;
    result.entry.color = defaultColor;
    result.entry.selected = 1;
    for (std::size_t i = 1; i < head.size(); ++i) {
        const std::size_t equals = head[i].find('=');
        if (equals == std::string_view::npos ||
            !ApplyKey(result.entry, head[i].substr(0, equals), head[i].substr(equals + 1))) {
            result.error = ProblemWith(head[i]);
            return result;
        }
    }
    result.path = argument.substr(colon + 1);
    result.line = ToUtf16(result.path);
    return result;
}

std::string LineHelp() {
    std::string text =
        "LINE is TYPE[,KEY=VALUE]...:TEXT. TYPE is polar, decart, parametric, file or implicit,\n"
        "TEXT as in the window (of a file its path), KEY=VALUE one of\n";
    for (const Key& key : Keys())
        text += "  " + std::string(key.name) + "=VALUE  " + std::string(key.values) + "\n";
    return text +
           "approx is the method of a file (docs/methods.md), the four below it its parameters.";
}

}  // namespace kalvex
