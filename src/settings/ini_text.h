// Settings as an INI text: sections, names and UTF-16 values. Any value survives being written and
// read, whatever characters it holds.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kalvex {

struct IniValue {
    std::string section;
    std::string name;
    std::u16string text;
};

/// Values in file order, found by section and name without regard to case.
struct IniText {
    std::vector<IniValue> values;
    std::map<std::string, std::size_t> places;  ///< index into `values` by folded "section/name"
    bool understood = true;  ///< false when a line was skipped that says something
};

/// The value of a name, or null.
[[nodiscard]] const IniValue* FindIniValue(const IniText& ini, std::string_view section,
                                           std::string_view name);

/// Whether a section has any value.
[[nodiscard]] bool HasIniSection(const IniText& ini, std::string_view section);

/// Changes a value, whose name keeps its spelling, or adds one at the end.
void SetIniValue(IniText& ini, std::string_view section, std::string_view name,
                 std::u16string_view text);

/// Reads any bytes. A line that is neither a section, a value nor a comment (";" or "#") is
/// skipped. Such a line, and bytes that are no UTF-8, mark the text as not understood. When a name
/// is repeated, its last value counts.
[[nodiscard]] IniText ReadIni(std::string_view bytes);

/// The whole text, sections in the order of their first value. Comments are not kept.
[[nodiscard]] std::string WriteIni(const IniText& ini);

}  // namespace kalvex
