// The manual page of the window program against the table of short cuts.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/encoding.h"
#include "resources/short_cuts.h"

namespace kalvex {
namespace {

/// The words that a section of the page sets in bold type, without commas and quotes.
std::set<std::string> BoldWords(const std::string& heading) {
    std::ifstream page(KALVEX_MANUAL_PAGE);
    std::set<std::string> words;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with(".S")) inside = line == ".SS " + heading;
        if (!inside || !line.starts_with(".B")) continue;
        std::istringstream pieces(line);
        for (std::string piece; pieces >> piece;)
            words.insert(piece);
    }
    return words;
}

/// The strokes of keys: "Ctrl+M, 0" has two.
std::vector<std::string> Strokes(std::u16string_view keys) {
    const std::string text = ToUtf8(keys);
    const std::size_t comma = text.find(", ");
    if (comma == std::string::npos) return {text};
    return {text.substr(0, comma), text.substr(comma + 2)};
}

TEST(ManualPage, NamesAllKeys) {
    const std::pair<const char*, std::span<const ShortCut>> sections[] = {
        {"In the nine lines", EditorShortCuts()},
        {"In the graph", GraphShortCuts()},
        {"In a report", ReportShortCuts()},
    };
    for (const auto& [heading, table] : sections) {
        const std::set<std::string> words = BoldWords(heading);
        ASSERT_FALSE(table.empty()) << heading;
        for (const ShortCut& entry : table) {
            for (const std::string& stroke : Strokes(entry.keys))
                EXPECT_TRUE(words.contains(stroke)) << heading << ": " << ToUtf8(entry.keys);
        }
    }
}

}  // namespace
}  // namespace kalvex
