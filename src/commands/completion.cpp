// A word is what follows the last delimiter; it is not checked. "2xs" ends in the word "xs", with
// which no name begins. The table is short enough to be searched from its first to its last row.
#include "commands/completion.h"

#include <algorithm>

#include "expr/names.h"

namespace kalvex {
namespace {

constexpr std::u16string_view kDelimiters = u"().,*+-/^1234567890;";

}  // namespace

std::size_t WordLength(std::u16string_view text, std::size_t caret) {
    const std::u16string_view before = text.substr(0, std::min(caret, text.size()));
    const std::size_t last = before.find_last_of(kDelimiters);
    return last == std::u16string_view::npos ? before.size() : before.size() - last - 1;
}

std::vector<std::u16string_view> NamesBeginningWith(std::u16string_view word) {
    std::vector<std::u16string_view> names;
    if (word.empty()) return names;
    for (const FunctionName& function : kFunctionNames) {
        if (function.name.starts_with(word)) names.push_back(function.name);
    }
    return names;
}

bool AsksForNames(char16_t typed) {
    return (typed >= u'a' && typed <= u'z') || (typed >= u'A' && typed <= u'Z');
}

}  // namespace kalvex
