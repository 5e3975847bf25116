// Numbers to and from text, independent of the locale. No other file converts between the two: the
// functions of the C library follow the locale, and a decimal comma would spoil files and settings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kalvex {

struct DecimalPrefix {
    double value = 0.0;
    std::size_t length =
        0;  ///< characters read, leading blanks included; 0 when there is no number
};

/// Reads the longest decimal number at the start of a text. It may have leading blanks and tabs, a
/// sign, digits with an optional "." (digits on at least one side of it), and an exponent, which
/// counts only when it is complete. The value is correctly rounded. A number that is too large
/// gives an infinity, one that is too small a zero or a denormal number. Words ("inf", "nan") and
/// hexadecimal forms are not numbers.
[[nodiscard]] DecimalPrefix ParseDecimalPrefix(std::u16string_view text);
[[nodiscard]] DecimalPrefix ParseDecimalPrefix(std::string_view text);

/// True when the whole text is one number in the sense of ParseDecimalPrefix.
[[nodiscard]] bool IsWholeDecimal(std::u16string_view text);

/// What printf writes for "%.*f" in the C locale, for every double ("inf", "-nan" included).
[[nodiscard]] std::string FormatFixed(double value, int digitsAfterPoint = 6);

/// FormatFixed as a text for people. The sign of a not-a-number has no meaning and is left out.
[[nodiscard]] std::u16string FixedText(double value, int digitsAfterPoint = 6);

/// What printf writes for "%g" in the C locale: six significant digits.
[[nodiscard]] std::string FormatGeneral6(double value);

/// What printf writes for "%.17g" in the C locale.
[[nodiscard]] std::string FormatGeneral17(double value);

/// The shortest text that reads back as the same double. It has no exponent when the magnitude lies
/// in [1e-5, 1e15). A zero of either sign is "0".
[[nodiscard]] std::string FormatShortest(double value);

/// n 10^exponent, exactly and without an exponent: "1200", "-0.05". No zeros at the end of a
/// fraction; zero is "0".
[[nodiscard]] std::string FormatPlain(std::int64_t n, int exponent);

/// n 10^exponent, exactly and with an exponent: "1.2e3", "-5e-2". No zeros at the end of the
/// digits; zero is "0".
[[nodiscard]] std::string FormatScientific(std::int64_t n, int exponent);

}  // namespace kalvex
