// A column of texts; each moves the next one down by its own measured height.
#include "graph/legend.h"

#include <algorithm>

#include "resources/strings.h"

namespace kalvex {
namespace {

bool IsFile(const FunctionEntry& entry) {
    return entry.type == EquationType::File;
}

/// The part of a `File` text behind its last slash or backslash; any other text whole.
std::u16string_view NameOf(const FunctionEntry& entry) {
    std::u16string_view text = entry.text;
    const std::size_t slash = IsFile(entry) ? text.find_last_of(u"\\/") : text.npos;
    if (slash != text.npos) text.remove_prefix(slash + 1);
    return text;
}

std::u16string LegendText(const FunctionEntry& entry, std::size_t limit) {
    const bool polar = entry.type == EquationType::Polar;
    std::u16string shown = DisplayText(entry, limit);
    if (!polar || NameOf(entry).size() > limit) return shown;
    return FillIn(Text(StringId::LegendPolar), {shown});
}

struct Box {
    std::int64_t left;
    std::int64_t top;
    std::int64_t right;
    std::int64_t bottom;
};

Box BoxOf(const TextRecord& text, const MeasureText& measure) {
    const TextExtent extent = measure(text.text, text.height);
    return {text.x, text.y, std::int64_t{text.x} + extent.width,
            std::int64_t{text.y} + extent.height};
}

bool Overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// @param firstName the first record that is a name
void MarkCoveredNumbers(DrawList& list, std::size_t firstName, const MeasureText& measure) {
    std::vector<Box> names;
    for (std::size_t i = firstName; i < list.records.size(); ++i)
        names.push_back(BoxOf(std::get<TextRecord>(list.records[i]), measure));
    for (std::size_t i = 0; i < firstName; ++i) {
        auto* const number = std::get_if<TextRecord>(&list.records[i]);
        if (number == nullptr) continue;
        const Box box = BoxOf(*number, measure);
        number->covered =
            std::ranges::any_of(names, [&box](const Box& name) { return Overlap(box, name); });
    }
}

}  // namespace

std::u16string DisplayText(const FunctionEntry& entry, std::size_t limit) {
    const std::u16string_view text = NameOf(entry);
    std::u16string shown(text.substr(0, limit));
    const bool cut = shown.size() < text.size();
    if (cut && !shown.empty() && shown.back() >= 0xD800 && shown.back() < 0xDC00) shown.pop_back();
    return shown;
}

bool IsDrawn(const FunctionEntry& entry) {
    return entry.selected == 1 && entry.type >= EquationType::Polar &&
           entry.type <= EquationType::Implicit;
}

void DrawLegend(const Viewport& viewport, const FunctionList& functions, const Options& options,
                const MeasureText& measure, DrawList& list) {
    const std::int32_t height = TextHeightOf(options);
    const auto limit = static_cast<std::size_t>(std::max(viewport.ClientWidth, 0));
    const std::size_t firstName = list.records.size();
    std::int32_t top = 5;
    for (std::int32_t slot = 0; slot < kSlotCount; ++slot) {
        const FunctionEntry& entry = functions[static_cast<std::size_t>(slot)];
        if (!IsDrawn(entry)) continue;
        std::u16string text = LegendText(entry, limit);
        const std::int32_t lineHeight = measure(text, height).height;
        list.records.emplace_back(TextRecord{5, top, std::move(text), ColorOf(entry.color), height,
                                             RecordOrigin{DrawLayer::Name, slot}});
        top += lineHeight;
    }
    MarkCoveredNumbers(list, firstName, measure);
}

}  // namespace kalvex
