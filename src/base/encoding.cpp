// Decoding follows the table of well-formed UTF-8 byte sequences in the Unicode Standard
// (table 3-7): the first byte fixes the length and the range of the second byte, all later bytes
// are 80..BF.
#include "base/encoding.h"

#include <cstdint>

namespace kalvex {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

std::uint8_t ByteAt(std::string_view text, std::size_t index) {
    return index < text.size() ? static_cast<std::uint8_t>(text[index]) : std::uint8_t{0};
}

/// Number of continuation bytes that the first byte asks for; -1 when it cannot begin a sequence.
int ContinuationCount(std::uint8_t first) {
    if (first < 0x80) return 0;
    if (first >= 0xC2 && first <= 0xDF) return 1;
    if (first >= 0xE0 && first <= 0xEF) return 2;
    if (first >= 0xF0 && first <= 0xF4) return 3;
    return -1;
}

bool SecondByteFits(std::uint8_t first, std::uint8_t second) {
    const std::uint8_t low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const std::uint8_t high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    return second >= low && second <= high;
}

void AppendUtf16(std::u16string& out, char32_t codePoint) {
    if (codePoint < 0x10000) {
        out.push_back(static_cast<char16_t>(codePoint));
        return;
    }
    const char32_t offset = codePoint - 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
}

void AppendUtf8(std::string& out, char32_t codePoint) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
        put(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    } else {
        put(0xF0 | (codePoint >> 18));
        put(0x80 | ((codePoint >> 12) & 0x3F));
        put(0x80 | ((codePoint >> 6) & 0x3F));
        put(0x80 | (codePoint & 0x3F));
    }
}

bool IsHighSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

}  // namespace

Utf8Character DecodeUtf8(std::string_view text, std::size_t at) {
    const std::uint8_t first = ByteAt(text, at);
    const int count = ContinuationCount(first);
    if (count < 0) return {};
    if (count == 0) return {first, 1, true};
    if (!SecondByteFits(first, ByteAt(text, at + 1))) return {};
    char32_t codePoint = first & (0x3F >> count);
    for (int i = 1; i <= count; ++i) {
        const std::uint8_t byte = ByteAt(text, at + static_cast<std::size_t>(i));
        if ((byte & 0xC0) != 0x80) return {};
        codePoint = (codePoint << 6) | (byte & 0x3Fu);
    }
    return {codePoint, static_cast<std::size_t>(count) + 1, true};
}

std::u16string ToUtf16(std::string_view utf8) {
    std::u16string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Character decoded = DecodeUtf8(utf8, at);
        AppendUtf16(out, decoded.codePoint);
        at += decoded.length;
    }
    return out;
}

std::string ToUtf8(std::u16string_view utf16) {
    std::string out;
    out.reserve(utf16.size());
    for (std::size_t at = 0; at < utf16.size(); ++at) {
        const char16_t unit = utf16[at];
        const bool paired =
            IsHighSurrogate(unit) && at + 1 < utf16.size() && IsLowSurrogate(utf16[at + 1]);
        if (paired) {
            const char32_t high = unit & 0x3FFu;
            const char32_t low = utf16[++at] & 0x3FFu;
            AppendUtf8(out, 0x10000 + (high << 10) + low);
        } else {
            const bool lone = IsHighSurrogate(unit) || IsLowSurrogate(unit);
            AppendUtf8(out, lone ? kReplacement : unit);
        }
    }
    return out;
}

std::u16string Widen(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

}  // namespace kalvex
