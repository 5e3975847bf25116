// Captions that carry their tip with them.
#pragma once

#include <string_view>

namespace kalvex {

struct CaptionAndTip {
    std::u16string_view caption;
    std::u16string_view tip;
};

/// Splits a text at its first "~~": the caption stands before it, the tip behind it. A text without
/// one is a caption without a tip. Both views look into `text`.
[[nodiscard]] CaptionAndTip SplitTip(std::u16string_view text);

}  // namespace kalvex
