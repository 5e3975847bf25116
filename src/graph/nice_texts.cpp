// The offset is the roundest number near the marks: a multiple of the largest power of ten that has
// one within the length of the axis on both sides of them. Differences from it are short.
#include "graph/nice_texts.h"

#include <algorithm>

#include "base/encoding.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

/// Whole numbers of 10^exponent.
struct Decimals {
    std::vector<std::int64_t> values;
    int exponent = 0;
};

using Format = std::string (*)(std::int64_t n, int exponent);

std::size_t LongestIn(const Decimals& numbers, Format format) {
    std::size_t longest = 0;
    for (const std::int64_t n : numbers.values)
        longest = std::max(longest, format(n, numbers.exponent).size() - (n < 0 ? 1 : 0));
    return longest;
}

/// The form that keeps the longest number shorter. Numbers in full are preferred while they are
/// short enough.
Format FormatFor(const Decimals& numbers) {
    const std::size_t plain = LongestIn(numbers, FormatPlain);
    if (plain <= kLongestNumber) return FormatPlain;
    return LongestIn(numbers, FormatScientific) < plain ? FormatScientific : FormatPlain;
}

std::vector<std::u16string> Written(const Decimals& numbers) {
    const Format format = FormatFor(numbers);
    std::vector<std::u16string> texts;
    for (const std::int64_t n : numbers.values)
        texts.push_back(Widen(format(n, numbers.exponent)));
    return texts;
}

/// The roundest number near least ... greatest, which are not negative.
std::int64_t RoundestNear(std::int64_t least, std::int64_t greatest) {
    const std::int64_t length = std::max<std::int64_t>(greatest - least, 1);
    std::int64_t power = 1;
    while (power <= (greatest + length) / 10)
        power *= 10;
    for (; power > 1; power /= 10) {
        const std::int64_t below = least / power * power;
        if (below >= least - length) return below;
        if (below + power <= greatest + length) return below + power;
    }
    return least;
}

/// The offset of numbers of one sign; 0 when there is none that makes them shorter.
std::int64_t OffsetFor(const Decimals& numbers) {
    const auto [least, greatest] = std::ranges::minmax(numbers.values);
    if (least > 0) return RoundestNear(least, greatest);
    if (greatest < 0) return -RoundestNear(-greatest, -least);
    return 0;
}

std::u16string OffsetText(std::int64_t n, int exponent) {
    const std::u16string text = Written({{n}, exponent}).front();
    return n > 0 ? u"+" + text : u"+(" + text + u")";
}

}  // namespace

NiceTexts TextsOf(std::span<const NiceMark> marks, const NiceStep& step, bool mayHaveOffset) {
    Decimals numbers{{}, step.exponent};
    for (const NiceMark& mark : marks)
        numbers.values.push_back(mark.k * step.digit);
    if (marks.empty() || !mayHaveOffset) return {Written(numbers), {}};
    if (LongestIn(numbers, FormatFor(numbers)) <= kLongestNumber) return {Written(numbers), {}};
    const std::int64_t offset = OffsetFor(numbers);
    if (offset == 0) return {Written(numbers), {}};
    for (std::int64_t& n : numbers.values)
        n -= offset;
    return {Written(numbers), OffsetText(offset, step.exponent)};
}

}  // namespace kalvex
