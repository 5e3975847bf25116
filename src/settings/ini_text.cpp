// A value stands on its line as UTF-8 and unquoted, so that "9sin(3x);9cos(2x)" reads as typed.
// Only what a text line cannot hold is escaped: the backslash itself, blanks at either end, and
// every unit that is a control character, half a surrogate pair or no character at all, as \uXXXX.
#include "settings/ini_text.h"

#include "base/encoding.h"
#include "settings/registry.h"

namespace kalvex {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

std::string PlaceOf(std::string_view section, std::string_view name) {
    std::string place(section);
    place += '/';
    place += name;
    return FoldedName(place);
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool IsPair(std::u16string_view text, std::size_t i) {
    return i + 1 < text.size() && IsHighSurrogate(text[i]) && IsLowSurrogate(text[i + 1]);
}

bool NeedsEscape(std::u16string_view text, std::size_t i) {
    const char16_t unit = text[i];
    const bool atEnd = i == 0 || i + 1 == text.size();
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F) || (unit == u' ' && atEnd) ||
           IsHighSurrogate(unit) || IsLowSurrogate(unit) || unit == 0xFEFF || unit >= 0xFFFE;
}

std::string Escaped(std::u16string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsPair(text, i)) {
            out += ToUtf8(text.substr(i++, 2));
        } else if (text[i] == u'\\') {
            out += "\\\\";
        } else if (NeedsEscape(text, i)) {
            out += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4) {
                out += kHexDigits[static_cast<std::size_t>(text[i] >> shift) & 15u];
            }
        } else {
            out += ToUtf8(text.substr(i, 1));
        }
    }
    return out;
}

/// Whether "\uXXXX" stands at a place. The code unit is returned in `unit`.
bool ReadEscape(std::u16string_view text, std::size_t i, char16_t& unit) {
    if (i + 6 > text.size() || text[i + 1] != u'u') return false;
    unsigned value = 0;
    for (std::size_t k = i + 2; k < i + 6; ++k) {
        const std::size_t digit =
            text[k] < 0x80 ? kHexDigits.find(static_cast<char>(text[k])) : kHexDigits.npos;
        if (digit == kHexDigits.npos) return false;
        value = value * 16 + static_cast<unsigned>(digit);
    }
    unit = static_cast<char16_t>(value);
    return true;
}

/// A backslash that does not begin an escape stands for itself: users type paths by hand.
std::u16string Unescaped(std::string_view bytes) {
    const std::u16string text = ToUtf16(bytes);
    std::u16string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t unit = text[i];
        if (unit == u'\\' && i + 1 < text.size() && text[i + 1] == u'\\') {
            ++i;
        } else if (unit == u'\\' && ReadEscape(text, i, unit)) {
            i += 5;
        }
        out += unit;
    }
    return out;
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Character character = DecodeUtf8(text, at);
        if (!character.wellFormed) return false;
        at += character.length;
    }
    return true;
}

/// False for a line that says something which is not kept: it is neither a section, a value nor a
/// comment, or it has bytes that are no UTF-8.
bool ReadLine(IniText& ini, std::string& section, std::string_view line) {
    if (line.empty() || line.front() == ';' || line.front() == '#') return true;
    if (line.front() == '[') {
        if (line.back() != ']') return false;
        section = Trimmed(line.substr(1, line.size() - 2));
        return true;
    }
    const std::size_t sign = line.find('=');
    if (sign == line.npos || sign == 0) return false;
    SetIniValue(ini, section, Trimmed(line.substr(0, sign)),
                Unescaped(Trimmed(line.substr(sign + 1))));
    return IsUtf8(line);
}

}  // namespace

const IniValue* FindIniValue(const IniText& ini, std::string_view section, std::string_view name) {
    const auto place = ini.places.find(PlaceOf(section, name));
    return place == ini.places.end() ? nullptr : &ini.values[place->second];
}

bool HasIniSection(const IniText& ini, std::string_view section) {
    const std::string beginning = PlaceOf(section, "");
    const auto first = ini.places.lower_bound(beginning);
    return first != ini.places.end() && first->first.starts_with(beginning);
}

void SetIniValue(IniText& ini, std::string_view section, std::string_view name,
                 std::u16string_view text) {
    const auto [place, added] = ini.places.try_emplace(PlaceOf(section, name), ini.values.size());
    if (added) {
        ini.values.push_back({std::string(section), std::string(name), std::u16string(text)});
    } else {
        ini.values[place->second].text = text;
    }
}

IniText ReadIni(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    IniText ini;
    std::string section;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        if (!ReadLine(ini, section, Trimmed(bytes.substr(0, end)))) ini.understood = false;
        bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    }
    return ini;
}

std::string WriteIni(const IniText& ini) {
    std::vector<std::string> sections;  // texts of their lines, by order of first appearance
    std::map<std::string, std::size_t> order;
    for (const IniValue& value : ini.values) {
        const auto [place, added] = order.try_emplace(FoldedName(value.section), sections.size());
        if (added) sections.push_back("[" + value.section + "]\n");
        sections[place->second] += value.name + "=" + Escaped(value.text) + "\n";
    }
    std::string out;
    for (const std::string& section : sections) {
        if (!out.empty()) out += '\n';
        out += section;
    }
    return out;
}

}  // namespace kalvex
