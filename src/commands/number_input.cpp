// One reading of numbers for all dialogs, through the program's locale-free conversion.
#include "commands/number_input.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/encoding.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr std::u16string_view kBlanks = u" \t\u00a0";

std::u16string_view Trimmed(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::u16string NumberForInput(double value) {
    return Widen(FormatShortest(value));
}

std::optional<double> WholeNumber(std::u16string_view text) {
    const std::u16string_view number = Trimmed(text);
    if (!IsWholeDecimal(number)) return std::nullopt;
    return ParseDecimalPrefix(number).value;
}

std::optional<InputProblem> ReadFiniteNumbers(std::span<const std::u16string> texts,
                                              std::span<const std::u16string_view> names,
                                              std::span<double> numbers) {
    std::vector<double> read;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::optional<double> number = WholeNumber(texts[i]);
        if (!number) return InputProblem{i, FillIn(Text(StringId::InputNotANumber), {names[i]})};
        if (!std::isfinite(*number))
            return InputProblem{i, FillIn(Text(StringId::InputNotFinite), {names[i]})};
        read.push_back(*number);
    }
    std::copy(read.begin(), read.end(), numbers.begin());
    return std::nullopt;
}

std::int32_t LeadingInteger(std::u16string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    std::u16string_view number = text.substr(first);
    const bool sign = !number.empty() && (number[0] == u'+' || number[0] == u'-');
    const std::size_t end = number.find_first_not_of(u"0123456789", sign ? 1 : 0);
    number = number.substr(0, end);
    return TruncateToInt32(ParseDecimalPrefix(number).value);
}

}  // namespace kalvex
