#include "commands/editor_commands.h"

#include <gtest/gtest.h>

#include "resources/methods.h"

namespace kalvex {
namespace {

struct Bench {
    Workspace workspace;
    int shows = 0;
    int draws = 0;
    int exits = 0;
    std::vector<int> filesAsked;
    std::vector<int> methodsSetUp;
    int options = 0;
    int calculators = 0;
    EditorState state{workspace, {}, false, {}, {}, {}, {}, {}, {}, {}};

    Bench() {
        state.showLines = [this] { ++shows; };
        state.draw = [this] { ++draws; };
        state.exit = [this] { ++exits; };
        state.choosePointFile = [this](int slot) { filesAsked.push_back(slot); };
        state.setMethodUp = [this](int slot) { methodsSetUp.push_back(slot); };
        state.openOptions = [this] { ++options; };
        state.openCalculator = [this] { ++calculators; };
    }
    bool Run(int slot, CommandId command) {
        state.slot = slot;
        return RunCommand(state, command);
    }
};

TEST(EditorCommands, Colours) {
    Bench bench;
    for (int number = 32777; number <= 32785; ++number) {
        EXPECT_TRUE(bench.Run(3, static_cast<CommandId>(number)));
        EXPECT_EQ(bench.workspace.functions[3].color, number - 32776);
    }
    EXPECT_EQ(bench.shows, 9);
}

TEST(EditorCommands, Types) {
    const std::pair<int, int> rows[] = {{32787, 1}, {32788, 2}, {32789, 3}, {32910, 4}, {32932, 5}};
    Bench bench;
    for (const auto& [number, type] : rows) {
        EXPECT_TRUE(bench.Run(8, static_cast<CommandId>(number)));
        EXPECT_EQ(bench.workspace.functions[8].type, type);
    }
    EXPECT_EQ(bench.filesAsked, std::vector<int>{8});  // only for a File line
}

TEST(EditorCommands, Methods) {
    for (const MethodChoice& choice : kMethods) {
        Bench bench;
        bench.workspace.functions[7].method.approx = 77;
        EXPECT_TRUE(bench.Run(7, choice.command));
        EXPECT_EQ(bench.workspace.functions[7].method.approx,
                  static_cast<std::int32_t>(choice.method));
        EXPECT_EQ(bench.methodsSetUp, std::vector<int>{7});
    }
}

TEST(EditorCommands, SelectToggles) {
    Bench bench;
    bench.Run(2, CommandId::Select);
    EXPECT_EQ(int{bench.workspace.functions[2].selected}, 1);
    bench.Run(2, CommandId::Select);
    EXPECT_EQ(int{bench.workspace.functions[2].selected}, 0);
}

TEST(EditorCommands, UnselectAllNeedsNoLine) {
    Bench bench;
    for (FunctionEntry& entry : bench.workspace.functions)
        entry.selected = 1;
    EXPECT_TRUE(RunCommand(bench.state, CommandId::UnselectAll));
    for (const FunctionEntry& entry : bench.workspace.functions)
        EXPECT_FALSE(entry.selected);
}

TEST(EditorCommands, DeleteEmptiesTheLineOnly) {
    Bench bench;
    bench.workspace.lines[4] = u"x^2";
    bench.workspace.functions[4].selected = 1;
    bench.workspace.functions[4].color = 6;
    bench.Run(4, CommandId::Delete);
    EXPECT_TRUE(bench.workspace.lines[4].empty());
    EXPECT_EQ(int{bench.workspace.functions[4].selected}, 1);
    EXPECT_EQ(bench.workspace.functions[4].color, 6);
}

TEST(EditorCommands, WithoutALineNothingChanges) {
    Bench bench;
    bench.workspace.lines.fill(u"x");
    for (const CommandId command :
         {CommandId::Red, CommandId::Polar, CommandId::Select, CommandId::Delete,
          CommandId::BSplines, CommandId::File, CommandId::CubicSpline}) {
        EXPECT_TRUE(RunCommand(bench.state, command));
    }
    for (const FunctionEntry& entry : bench.workspace.functions) {
        EXPECT_EQ(entry.color, 0);
        EXPECT_EQ(entry.type, 0);
        EXPECT_EQ(entry.method.approx, 0);
        EXPECT_FALSE(entry.selected);
    }
    for (const std::u16string& line : bench.workspace.lines)
        EXPECT_TRUE(line == u"x");
    EXPECT_EQ(bench.shows, 0);
    EXPECT_TRUE(bench.filesAsked.empty() && bench.methodsSetUp.empty());
    EXPECT_TRUE(bench.Run(9, CommandId::Red));
    EXPECT_TRUE(bench.Run(-1, CommandId::Red));
}

TEST(EditorCommands, DrawExitAndStrangers) {
    Bench bench;
    EXPECT_TRUE(RunCommand(bench.state, CommandId::Draw));
    EXPECT_TRUE(RunCommand(bench.state, CommandId::Exit));
    EXPECT_TRUE(RunCommand(bench.state, CommandId::Options));
    EXPECT_TRUE(RunCommand(bench.state, CommandId::Calculator));
    EXPECT_EQ(bench.draws, 1);
    EXPECT_EQ(bench.exits, 1);
    EXPECT_EQ(bench.options, 1);
    EXPECT_EQ(bench.calculators, 1);
    for (const CommandId command :
         {CommandId::None, CommandId::GraphTable, CommandId::Help, CommandId::InsertSin}) {
        EXPECT_FALSE(bench.Run(0, command));
    }
}

TEST(EditorCommands, MenuFlag) {
    const std::pair<CommandId, bool> rows[] = {{CommandId::Select, false},
                                               {CommandId::Draw, false},
                                               {CommandId::Great, false},
                                               {CommandId::Polar, true},
                                               {CommandId::UnselectAll, true}};
    for (const auto& [command, open] : rows) {
        Bench bench;
        bench.state.menuOpen = true;
        bench.Run(0, command);
        EXPECT_EQ(bench.state.menuOpen, open);
    }
}

}  // namespace
}  // namespace kalvex
