// Conversions between UTF-8 and UTF-16 that accept any bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kalvex {

struct Utf8Character {
    char32_t codePoint = U'\uFFFD';  ///< U+FFFD also where the bytes are not well formed
    std::size_t length = 1;          ///< bytes of this character
    bool wellFormed = false;
};

/// The character that begins at byte `at` of a text. `at` is less than the length of the text.
[[nodiscard]] Utf8Character DecodeUtf8(std::string_view text, std::size_t at);

/// UTF-16 of a UTF-8 text. Each byte that does not belong to a well-formed sequence (stray or
/// missing continuation, overlong form, surrogate, beyond U+10FFFF) becomes one U+FFFD.
[[nodiscard]] std::u16string ToUtf16(std::string_view utf8);

/// UTF-8 of a UTF-16 text. A surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::u16string_view utf16);

/// UTF-16 of an ASCII text, character by character.
[[nodiscard]] std::u16string Widen(std::string_view ascii);

}  // namespace kalvex
