// Numbers to and from text, the same under every locale. No other file converts between the two:
// the C library's conversions follow the locale, and a comma there would spoil files and settings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kalvex {

struct DecimalPrefix {
    double value = 0.0;
    std::size_t length = 0;  ///< characters consumed, leading blanks included; 0: no number here
};

/// Reads the longest decimal number at the start of a text: blanks and tabs, a sign, digits with
/// an optional "." (digits on at least one side of it), an exponent when it is complete. Correctly
/// rounded; too large gives an infinity, too small a zero or denormal. Words ("inf", "nan") and
/// hexadecimal forms are no numbers.
DecimalPrefix ParseDecimalPrefix(std::u16string_view text);
DecimalPrefix ParseDecimalPrefix(std::string_view text);

/// True when the whole text is one number in the sense of ParseDecimalPrefix.
bool IsWholeDecimal(std::u16string_view text);

/// What printf writes for "%.*f" in the C locale, for every double ("inf", "-nan" included).
std::string FormatFixed(double value, int digitsAfterPoint = 6);

/// FormatFixed as a text for people: the sign bit of a not-a-number means nothing and is left out.
std::u16string FixedText(double value, int digitsAfterPoint = 6);

/// What printf writes for "%g" in the C locale: six significant digits.
std::string FormatGeneral6(double value);

/// What printf writes for "%.17g" in the C locale.
std::string FormatGeneral17(double value);

/// The shortest text that reads back as the same double, never in exponent form when the
/// magnitude lies in [1e-5, 1e15); zero of either sign is "0".
std::string FormatShortest(double value);

}  // namespace kalvex
