#include "commands/editor_commands.h"

#include <gtest/gtest.h>

#include "resources/methods.h"

namespace kalvex {
namespace {

struct Bench {
    Workspace workspace;
    EditorState state;

    std::optional<EditorStep> Run(std::optional<int> slot, CommandId command) {
        state.slot = slot;
        return RunEditorCommand(workspace, state, command);
    }
};

TEST(EditorCommands, Colours) {
    Bench bench;
    for (int number = 32777; number <= 32785; ++number) {
        EXPECT_EQ(bench.Run(3, static_cast<CommandId>(number)), EditorStep::ShowLines) << number;
        EXPECT_EQ(bench.workspace.functions[3].color, number - 32776);
    }
}

TEST(EditorCommands, Types) {
    const std::pair<int, int> rows[] = {{32787, 1}, {32788, 2}, {32789, 3}, {32910, 4}, {32932, 5}};
    Bench bench;
    for (const auto& [number, type] : rows) {
        EXPECT_EQ(bench.Run(8, static_cast<CommandId>(number)),
                  number == 32910 ? EditorStep::ChoosePointFile : EditorStep::ShowLines)
            << number;
        EXPECT_EQ(static_cast<int>(bench.workspace.functions[8].type), type);
    }
}

TEST(EditorCommands, Methods) {
    for (const MethodChoice& choice : kMethods) {
        Bench bench;
        bench.workspace.functions[7].method.approx = 77;
        EXPECT_EQ(bench.Run(7, choice.command), EditorStep::SetMethodUp);
        EXPECT_EQ(bench.workspace.functions[7].method.approx,
                  static_cast<std::int32_t>(choice.method));
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
    EXPECT_EQ(bench.Run({}, CommandId::UnselectAll), EditorStep::ShowLines);
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
        for (const std::optional<int> slot :
             {std::optional<int>(), std::optional(9), std::optional(-1)})
            EXPECT_EQ(bench.Run(slot, command), EditorStep::Nothing) << static_cast<int>(command);
    }
    for (const FunctionEntry& entry : bench.workspace.functions) {
        EXPECT_EQ(entry.color, 0);
        EXPECT_EQ(entry.type, EquationType::None);
        EXPECT_EQ(entry.method.approx, 0);
        EXPECT_FALSE(entry.selected);
    }
    for (const std::u16string& line : bench.workspace.lines)
        EXPECT_TRUE(line == u"x");
}

TEST(EditorCommands, OthersAreNotItsOwn) {
    Bench bench;
    for (const CommandId command :
         {CommandId::Draw, CommandId::Exit, CommandId::Options, CommandId::Calculator,
          CommandId::None, CommandId::GraphTable, CommandId::Help, CommandId::InsertSin}) {
        EXPECT_EQ(bench.Run(0, command), std::nullopt) << static_cast<int>(command);
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
