// Caption and tip are one text, so that neither is translated or changed without the other. The
// first mark divides them; a tip may contain further ones.
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
