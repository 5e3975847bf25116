// The rows of resources/texts become the numbers in the header and the table here, so that the two
// cannot differ. The table is in the order of the numbers. So a text is found by binary search, and
// a number that is used twice is an error when this file is compiled.
#include "resources/strings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>

#include "base/encoding.h"

namespace kalvex {
namespace {

struct Entry {
    StringId id;
    std::u16string_view text;
};

constexpr Entry kTable[] = {
#define KALVEX_TEXT(name, number, text) {StringId::name, text},
#include "resources/texts/texts.inc"
#undef KALVEX_TEXT
};

static_assert(std::ranges::adjacent_find(kTable, std::greater_equal{}, &Entry::id) ==
                  std::ranges::end(kTable),
              "each text needs a number greater than that of the text before it");

/// The place that a digit behind "%" names, counted from 0; a number beyond all places for any
/// other character.
std::size_t PlaceOf(char16_t digit) {
    return digit >= u'1' && digit <= u'9' ? static_cast<std::size_t>(digit - u'1') : std::size_t{9};
}

}  // namespace

std::u16string_view Text(StringId id) {
    const auto* const entry = std::ranges::lower_bound(kTable, id, {}, &Entry::id);
    const bool found = entry != std::ranges::end(kTable) && entry->id == id;
    return found ? entry->text : std::u16string_view{};
}

std::u16string FillIn(std::u16string_view format,
                      std::initializer_list<std::u16string_view> texts) {
    std::u16string out;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char16_t next = i + 1 < format.size() ? format[i + 1] : char16_t{0};
        const std::size_t place = PlaceOf(next);
        if (format[i] != u'%' || (place == 9 && next != u'%')) {
            out.push_back(format[i]);
            continue;
        }
        ++i;
        if (next == u'%') out.push_back(next);
        if (place < texts.size()) out.append(texts.begin()[place]);
    }
    return out;
}

std::u16string NumberText(std::int64_t number) {
    std::array<char, 24> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return Widen({digits.data(), result.ptr});
}

}  // namespace kalvex
