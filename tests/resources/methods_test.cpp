#include "resources/methods.h"

#include <gtest/gtest.h>

#include <set>

#include "resources/short_cuts.h"

namespace kalvex {
namespace {

// KEEP: the numbers of these commands are fixed; a further method gets any free one.
TEST(Methods, HaveTheirFixedCommands) {
    for (int code = 0; code < 13; ++code) {
        const MethodChoice& choice = kMethods.at(static_cast<std::size_t>(code));
        EXPECT_EQ(static_cast<int>(choice.method), code);
        EXPECT_EQ(static_cast<int>(choice.command), 32919 + code) << code;
    }
}

TEST(Methods, AreFoundByTheirCommandsOnly) {
    for (const MethodChoice& choice : kMethods)
        EXPECT_EQ(MethodOfCommand(choice.command), choice.method);
    for (const CommandId other : {CommandId::None, CommandId::FunctionToFile, CommandId::Implicit,
                                  CommandId::ApproxTypeMenu, static_cast<CommandId>(32918)})
        EXPECT_EQ(MethodOfCommand(other), std::nullopt) << static_cast<int>(other);
}

TEST(Methods, HaveCommandsWordsAndKeysOfTheirOwn) {
    std::set<CommandId> commands;
    std::set<std::u16string_view> words;
    std::set<std::u16string_view> keys;
    for (const MethodChoice& choice : kMethods) {
        EXPECT_TRUE(commands.insert(choice.command).second) << static_cast<int>(choice.command);
        EXPECT_TRUE(words.insert(Text(choice.word)).second) << static_cast<int>(choice.command);
        EXPECT_TRUE(keys.insert(choice.keys).second) << static_cast<int>(choice.command);
        EXPECT_EQ(KeysOf(EditorShortCuts(), choice.command), choice.keys);
    }
    EXPECT_FALSE(words.contains(u""));
    EXPECT_FALSE(keys.contains(u""));
}

}  // namespace
}  // namespace kalvex
