// The tip is part of the caption's text so that the two cannot be taken apart by a translation or a
// change of one of them: wherever the caption goes its tip goes along. The first mark counts, so a
// tip may contain one.
#include "resources/tip_text.h"

namespace kalvex {
namespace {

constexpr std::u16string_view kMark = u"~~";

}  // namespace

CaptionAndTip SplitTip(std::u16string_view text) {
    const std::size_t mark = text.find(kMark);
    if (mark == text.npos) return {text, {}};
    return {text.substr(0, mark), text.substr(mark + kMark.size())};
}

}  // namespace kalvex
