// A column of texts; each moves the next one down by its own measured height.
#include "graph/legend.h"

#include <algorithm>

namespace kalvex {
namespace {

std::u16string DisplayText(const FunctionEntry& entry, std::size_t limit) {
    std::u16string_view text = entry.text;
    const auto type = static_cast<EquationType>(entry.type);
    if (type == EquationType::File) {
        const std::size_t slash = text.find_last_of(u"\\/");
        if (slash != std::u16string_view::npos) text.remove_prefix(slash + 1);
    }
    std::u16string shown(text.substr(0, limit));
    const bool cut = shown.size() < text.size();
    if (cut && !shown.empty() && shown.back() >= 0xD800 && shown.back() < 0xDC00) shown.pop_back();
    if (!cut && type == EquationType::Polar) shown += u" (r)";
    return shown;
}

}  // namespace

bool IsDrawn(const FunctionEntry& entry) {
    return entry.selected == 1 && entry.type >= static_cast<std::int32_t>(EquationType::Polar) &&
           entry.type <= static_cast<std::int32_t>(EquationType::Implicit);
}

void DrawLegend(const Viewport& viewport, const FunctionList& functions, const Options& options,
                const MeasureText& measure, DrawList& list) {
    const std::int32_t height = TextHeightOf(options);
    const auto limit = static_cast<std::size_t>(std::max(viewport.ClientWidth, 0));
    std::int32_t top = 5;
    for (const FunctionEntry& entry : functions) {
        if (!IsDrawn(entry)) continue;
        std::u16string text = DisplayText(entry, limit);
        const std::int32_t lineHeight = measure(text, height).height;
        list.records.emplace_back(
            TextRecord{5, top, std::move(text), ColorOf(entry.color), height});
        top += lineHeight;
    }
}

}  // namespace kalvex
