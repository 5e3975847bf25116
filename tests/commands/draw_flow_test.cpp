#include "commands/draw_flow.h"

#include <gtest/gtest.h>

#include "settings/examples.h"
#include "settings/faulty_registry.h"
#include "workspace/defaults.h"

namespace kalvex {
namespace {

/// Runs the flow with boxes that are answered at once. Whether all lines have passed.
bool Prepare(FunctionList& functions, const EditorLines& lines, const Registry& registry,
             const ShowMessage& show) {
    bool passed = false;
    PrepareFunctions(functions, lines, registry, show, [&passed] { passed = true; });
    return passed;
}

TEST(PrepareFunctions, StoresEveryLineAsTyped) {
    FunctionList functions = DefaultWorkspace().functions;
    EditorLines lines;
    for (std::size_t i = 0; i < 9; ++i)
        lines[i] = std::u16string(i, u'x');
    functions[8].type = EquationType::File;
    functions[8].selected = 1;
    lines[8] = u"\\My Documents\\data.txt";
    const FaultyRegistry faulty = MakeFilledRegistry();
    ShownBoxes shown;
    EXPECT_TRUE(Prepare(functions, lines, faulty.registry, shown.show));
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(faulty.registry.readText(std::to_string(i + 1), "equ"), lines[i]) << i;
    }
    EXPECT_EQ(functions[8].text, u"data.txt");
    EXPECT_TRUE(shown.boxes->empty());
}

TEST(PrepareFunctions, StopsAtTheFirstBadLine) {
    FunctionList functions = DefaultWorkspace().functions;
    const EditorLines lines = {u"x", u"2q", u"3q", u"x"};
    for (FunctionEntry& entry : functions)
        entry.selected = 1;
    functions[0].text = u"old";
    functions[2].text = u"old";
    const FaultyRegistry faulty = MakeFilledRegistry();
    ShownBoxes shown;
    EXPECT_FALSE(Prepare(functions, lines, faulty.registry, shown.show));
    ASSERT_EQ(shown.boxes->size(), 1u);
    EXPECT_EQ(shown.boxes->front().text, u"Error in 2 function:\n2q\nThere is an unknown lexeme");
    EXPECT_EQ(*faulty.log, (std::vector<std::string>{"open 1/", "writeText 1/equ"}));
    EXPECT_EQ(functions[0].text, u"x");
    EXPECT_EQ(functions[2].text, u"old");
}

TEST(PrepareFunctions, EndsSilentlyWhenALineCannotBeStored) {
    for (int slot = 1; slot <= 9; ++slot) {
        for (const char* operation : {"open ", "writeText "}) {
            FunctionList functions = DefaultWorkspace().functions;
            functions[8].selected = 1;  // an empty selected line: checking it would show a box
            const FaultyRegistry faulty = MakeFilledRegistry();
            const std::string key = std::to_string(slot) + "/";
            const bool opening = operation == std::string("open ");
            *faulty.fails = Exactly(operation + key + (opening ? "" : "equ"));
            ShownBoxes shown;
            EXPECT_FALSE(Prepare(functions, {}, faulty.registry, shown.show));
            EXPECT_EQ(shown.boxes->size(), slot == 9 ? 1u : 0u) << slot;
            functions[8].selected = 0;
            EXPECT_FALSE(Prepare(functions, {}, faulty.registry, shown.show)) << slot;
            EXPECT_EQ(shown.boxes->size(), slot == 9 ? 1u : 0u) << slot;
        }
    }
}

TEST(PrepareFunctions, TakesLinesOfAnyLength) {
    FunctionList functions = DefaultWorkspace().functions;
    functions[0].selected = 1;
    EditorLines lines;
    lines[0] = std::u16string(100000, u'(');
    lines[1] = std::u16string(100000, u';');
    const FaultyRegistry faulty = MakeFilledRegistry();
    ShownBoxes shown;
    EXPECT_FALSE(Prepare(functions, lines, faulty.registry, shown.show));
    EXPECT_EQ(shown.boxes->size(), 1u);
}

TEST(ExampleWorkspace, PreparesWithoutABox) {
    Workspace workspace = ExampleWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        workspace.functions[i].selected = workspace.lines[i].empty() ? 0 : 1;
    }
    const FaultyRegistry faulty = MakeFilledRegistry();
    ShownBoxes shown;
    EXPECT_TRUE(Prepare(workspace.functions, workspace.lines, faulty.registry, shown.show));
    EXPECT_TRUE(shown.boxes->empty());
}

}  // namespace
}  // namespace kalvex
