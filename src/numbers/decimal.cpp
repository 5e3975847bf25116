// To read, the longest number is found by its grammar, and std::from_chars converts exactly those
// characters. from_chars reports overflow and underflow by the same code and leaves no value. The
// decimal exponent of the first non-zero digit tells which of the two it was.
#include "numbers/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "base/encoding.h"

namespace kalvex {
namespace {

constexpr bool IsDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

/// Where the parts of a number lie in the text.
struct Extent {
    std::size_t sign = 0;      ///< position of the sign, or of the first digit or point
    std::size_t mantissa = 0;  ///< position of the first digit or point
    std::size_t end = 0;       ///< one past the last character; 0: no number
};

template <typename Char>
std::size_t SkipDigits(std::basic_string_view<Char> text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

template <typename Char>
std::size_t SkipExponent(std::basic_string_view<Char> text, std::size_t at) {
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
    std::size_t digits = at + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
    const std::size_t end = SkipDigits(text, digits);
    return end == digits ? at : end;
}

template <typename Char>
Extent FindNumber(std::basic_string_view<Char> text) {
    Extent extent;
    std::size_t at = 0;
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
        ++at;
    extent.sign = at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    extent.mantissa = at;
    const std::size_t whole = SkipDigits(text, at);
    std::size_t digitCount = whole - at;
    std::size_t end = whole;
    if (whole < text.size() && text[whole] == '.') {
        const std::size_t fractionEnd = SkipDigits(text, whole + 1);
        digitCount += fractionEnd - whole - 1;
        end = fractionEnd;
    }
    if (digitCount == 0) return {};
    extent.end = SkipExponent(text, end);
    return extent;
}

/// The decimal exponent written behind "e". One far beyond the range of doubles is limited, so that
/// it cannot overflow.
long long WrittenExponent(std::string_view number) {
    const std::size_t e = number.find_first_of("eE");
    if (e == std::string_view::npos) return 0;
    std::string_view digits = number.substr(e + 1);
    if (digits.front() == '+') digits.remove_prefix(1);
    long long exponent = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    constexpr long long kFar = std::numeric_limits<long long>::max() / 4;
    if (result.ec == std::errc{}) return std::clamp(exponent, -kFar, kFar);
    return digits.front() == '-' ? -kFar : kFar;
}

/// Whether a number that is out of range, and not zero, is too large rather than too small.
bool IsLarge(std::string_view number) {
    const std::size_t mantissaEnd = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return false;
    const auto signedPoint = static_cast<long long>(point);
    const auto signedFirst = static_cast<long long>(first);
    return signedPoint - signedFirst + WrittenExponent(number) > 0;
}

double Convert(std::string_view unsignedNumber) {
    double value = 0.0;
    const char* const end = unsignedNumber.data() + unsignedNumber.size();
    const auto result = std::from_chars(unsignedNumber.data(), end, value);
    if (result.ec != std::errc::result_out_of_range) return value;
    return IsLarge(unsignedNumber) ? std::numeric_limits<double>::infinity() : 0.0;
}

template <typename Char>
DecimalPrefix ParsePrefix(std::basic_string_view<Char> text) {
    const Extent extent = FindNumber(text);
    if (extent.end == 0) return {};
    std::string number;
    number.reserve(extent.end - extent.mantissa);
    for (std::size_t i = extent.mantissa; i < extent.end; ++i) {
        number.push_back(static_cast<char>(text[i]));
    }
    const double magnitude = Convert(number);
    return {text[extent.sign] == '-' ? -magnitude : magnitude, extent.end};
}

std::string Format(double value, std::chars_format format, int precision) {
    // 309 digits before the point, the sign, the point and the digits after it.
    std::string text(320 + static_cast<std::size_t>(precision), '\0');
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
    return text;
}

/// The number sign digits 10^power. The last digit is not 0.
struct DecimalDigits {
    std::string sign;
    std::string digits;
    int power = 0;
};

DecimalDigits DigitsOf(std::int64_t n, int exponent) {
    const std::string text = std::to_string(n);
    const std::size_t start = n < 0 ? 1 : 0;
    const std::size_t end = text.find_last_not_of('0') + 1;
    return {text.substr(0, start), text.substr(start, end - start),
            exponent + static_cast<int>(text.size() - end)};
}

}  // namespace

DecimalPrefix ParseDecimalPrefix(std::u16string_view text) {
    return ParsePrefix(text);
}
DecimalPrefix ParseDecimalPrefix(std::string_view text) {
    return ParsePrefix(text);
}

bool IsWholeDecimal(std::u16string_view text) {
    const DecimalPrefix prefix = ParseDecimalPrefix(text);
    return prefix.length > 0 && prefix.length == text.size();
}

std::string FormatFixed(double value, int digitsAfterPoint) {
    return Format(value, std::chars_format::fixed, digitsAfterPoint);
}

std::u16string FixedText(double value, int digitsAfterPoint) {
    const double shown = std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value;
    return Widen(FormatFixed(shown, digitsAfterPoint));
}

std::string FormatGeneral6(double value) {
    return Format(value, std::chars_format::general, 6);
}

std::string FormatGeneral17(double value) {
    return Format(value, std::chars_format::general, 17);
}

std::string FormatShortest(double value) {
    if (value == 0.0) return "0";
    const double magnitude = std::fabs(value);
    const bool plain = magnitude >= 1e-5 && magnitude < 1e15;
    char text[64];
    const auto result =
        plain ? std::to_chars(text, text + sizeof text, value, std::chars_format::fixed)
              : std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

std::string FormatPlain(std::int64_t n, int exponent) {
    if (n == 0) return "0";
    const auto [sign, digits, power] = DigitsOf(n, exponent);
    if (power >= 0) return sign + digits + std::string(static_cast<std::size_t>(power), '0');
    const auto places = static_cast<std::size_t>(-power);
    if (places >= digits.size())
        return sign + "0." + std::string(places - digits.size(), '0') + digits;
    const std::size_t whole = digits.size() - places;
    return sign + digits.substr(0, whole) + "." + digits.substr(whole);
}

std::string FormatScientific(std::int64_t n, int exponent) {
    if (n == 0) return "0";
    const auto [sign, digits, power] = DigitsOf(n, exponent);
    const std::string fraction = digits.size() > 1 ? "." + digits.substr(1) : "";
    const int leading = power + static_cast<int>(digits.size()) - 1;
    return sign + digits.substr(0, 1) + fraction + "e" + std::to_string(leading);
}

}  // namespace kalvex
