#include "resources/short_cuts.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "resources/menus.h"

namespace kalvex {
namespace {

/// The menu words of the commands that have no short cut.
void CollectWithoutKeys(const Menu& menu, std::span<const ShortCut> table,
                        std::set<std::u16string>& found) {
    for (const MenuEntry& entry : menu) {
        CollectWithoutKeys(entry.children, table, found);
        const bool command = entry.children.empty() && entry.id != CommandId::None;
        if (command && KeysOf(table, entry.id).empty()) found.insert(std::u16string(entry.text));
    }
}

TEST(ShortCuts, EveryCommandOfAMenuHasOne) {
    std::set<std::u16string> found;
    CollectWithoutKeys(MainMenu(), EditorShortCuts(), found);
    CollectWithoutKeys(GraphMenu(), GraphShortCuts(), found);
    CollectWithoutKeys(ExportMenuOfPages(), ReportShortCuts(), found);
    // This command does nothing, so it needs no short cut.
    EXPECT_EQ(found, std::set<std::u16string>{u"Analiz function"});
}

TEST(ShortCuts, NoKeysMeanTwoCommands) {
    for (const auto table : {EditorShortCuts(), GraphShortCuts(), ReportShortCuts()}) {
        std::set<std::u16string_view> keys;
        for (const ShortCut& shortCut : table)
            EXPECT_TRUE(keys.insert(shortCut.keys).second)
                << std::string(shortCut.keys.begin(), shortCut.keys.end());
    }
}

TEST(KeysOf, GivesTheFirstKeys) {
    EXPECT_EQ(KeysOf(EditorShortCuts(), CommandId::Draw), u"F5");
    EXPECT_EQ(KeysOf(GraphShortCuts(), CommandId::GraphTable), u"F5");
    EXPECT_EQ(KeysOf(ReportShortCuts(), CommandId::Draw), u"");
}

}  // namespace
}  // namespace kalvex
