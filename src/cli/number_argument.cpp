// Numbers follow the grammar of the whole program (numbers/decimal.h), which has no words for
// infinity and not-a-number. Arguments accept inf and nan too, so that extreme windows can be
// tried.
#include "cli/number_argument.h"

#include <limits>

#include "numbers/decimal.h"
#include "numbers/truncate.h"

namespace kalvex {

std::optional<double> ParseNumber(std::string_view text) {
    if (text == "inf" || text == "+inf") return std::numeric_limits<double>::infinity();
    if (text == "-inf") return -std::numeric_limits<double>::infinity();
    if (text == "nan" || text == "-nan") return std::numeric_limits<double>::quiet_NaN();
    const DecimalPrefix prefix = ParseDecimalPrefix(text);
    if (prefix.length == 0 || prefix.length != text.size()) return std::nullopt;
    return prefix.value;
}

std::optional<std::vector<double>> ParseNumbers(std::string_view text, std::size_t count) {
    std::vector<double> numbers;
    for (const std::string_view part : Split(text, ',')) {
        const std::optional<double> number = ParseNumber(part);
        if (!number) return std::nullopt;
        numbers.push_back(*number);
    }
    if (numbers.size() != count) return std::nullopt;
    return numbers;
}

std::optional<std::int64_t> ParseWhole(std::string_view text, std::int64_t first,
                                       std::int64_t last) {
    constexpr double kLargest = 9007199254740992.0;  // 2^53: every whole number up to it is exact
    if (text.find_first_not_of("+-0123456789") != std::string_view::npos) return std::nullopt;
    const std::optional<double> number = ParseNumber(text);
    if (!number || *number < -kLargest || *number > kLargest) return std::nullopt;
    const std::int64_t whole = TruncateToInt64(*number);
    if (whole < first || whole > last) return std::nullopt;
    return whole;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

}  // namespace kalvex
