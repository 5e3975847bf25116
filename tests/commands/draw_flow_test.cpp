#include "commands/draw_flow.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "base/read_file.h"
#include "base/temporary_file.h"
#include "settings/examples.h"
#include "settings/faulty_registry.h"
#include "settings/registry_file.h"
#include "workspace/defaults.h"

namespace kalvex {
namespace {

/// Runs the flow with boxes that are answered at once. Whether all lines have passed.
bool Prepare(FunctionList& functions, const EditorLines& lines, const Registry& registry,
             const ShowMessage& show) {
    bool passed = false;
    PrepareFunctions(functions, lines, registry, show, {}, [&passed](bool all) { passed = all; });
    return passed;
}

/// The same with the whole flow. Whether the graph may be shown.
bool Draw(Workspace& workspace, const Registry& registry, const ShowMessage& show) {
    bool ready = false;
    RunDrawFlow(workspace, registry, show, [&ready](bool all) { ready = all; });
    return ready;
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

/// A registry in a file that says after each write what a reader of the file would see.
struct WatchedFile {
    std::filesystem::path folder;
    Registry registry;
    std::shared_ptr<std::set<std::string>> seen = std::make_shared<std::set<std::string>>();

    WatchedFile() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "kalvex-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        folder = pattern;
        registry = OpenRegistryFile(File());
        static_cast<void>(CreateDefaultKeys(registry));
        const Registry inner = registry;
        const auto look = [file = File(), to = seen](bool written) {
            to->insert(ReadWholeFile(file, 100000).bytes);
            return written;
        };
        registry.writeNumber = [=](std::string_view key, std::string_view name,
                                   std::int32_t value) {
            return look(inner.writeNumber(key, name, value));
        };
        registry.writeText = [=](std::string_view key, std::string_view name,
                                 std::u16string_view value) {
            return look(inner.writeText(key, name, value));
        };
        registry.commit = [=] { return look(inner.commit()); };
    }
    ~WatchedFile() { std::filesystem::remove_all(folder); }
    WatchedFile(const WatchedFile&) = delete;
    WatchedFile& operator=(const WatchedFile&) = delete;
    [[nodiscard]] std::string File() const { return (folder / "kalvex.ini").string(); }
};

/// Lines and settings that are all new.
Workspace NewWorkspace() {
    Workspace workspace = DefaultWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        workspace.lines[i] = std::u16string(i + 1, u'x');
        workspace.functions[i].color = 5;
    }
    return workspace;
}

TEST(RunDrawFlow, ReplacesTheFileOnce) {
    const WatchedFile file;
    const std::string before = ReadWholeFile(file.File(), 100000).bytes;
    Workspace workspace = NewWorkspace();
    workspace.functions[0].selected = 1;
    ShownBoxes shown;
    EXPECT_TRUE(Draw(workspace, file.registry, shown.show));
    const std::string after = ReadWholeFile(file.File(), 100000).bytes;
    EXPECT_EQ(*file.seen, (std::set<std::string>{before, after}));
    EXPECT_EQ(OpenRegistryFile(file.File()).readText("9", "equ"), std::u16string(9, u'x'));
    EXPECT_EQ(OpenRegistryFile(file.File()).readNumber("9", "color"), 5);
}

TEST(RunDrawFlow, HasStoredWhatComesBeforeABox) {
    const WatchedFile file;
    Workspace workspace = NewWorkspace();
    workspace.lines[2] = u"x+*";
    workspace.functions[2].selected = 1;
    int boxes = 0;
    EXPECT_FALSE(Draw(workspace, file.registry, [&](const MessageBox&) {
        ++boxes;
        EXPECT_EQ(OpenRegistryFile(file.File()).readText("2", "equ"), u"xx");
        return MessageAnswer::Ok;
    }));
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(OpenRegistryFile(file.File()).readNumber("2", "color"), 2);
}

TEST(RunDrawFlow, ShowsNoBoxWhenTheLinesBeforeItCouldNotBeStored) {
    const WatchedFile file;
    const std::string before = ReadWholeFile(file.File(), 100000).bytes;
    std::filesystem::create_directory(file.folder / "elsewhere");
    std::filesystem::rename(file.File(), file.folder / "elsewhere" / "kalvex.ini");
    std::filesystem::create_directory(file.File());  // nothing can be stored in its place
    Workspace workspace = NewWorkspace();
    workspace.lines[2] = u"x+*";
    workspace.functions[2].selected = 1;
    ShownBoxes shown;
    EXPECT_FALSE(Draw(workspace, file.registry, shown.show));
    EXPECT_TRUE(shown.boxes->empty());
    EXPECT_TRUE(std::filesystem::is_directory(file.File()));
}

/// Draws the one and the other workspace until it is killed.
[[noreturn]] void DrawForever(const std::string& file, Workspace& one, Workspace& other) {
    const Registry registry = OpenRegistryFile(file);
    const ShowMessage show = [](const MessageBox&) { return MessageAnswer::Ok; };
    for (;;) {
        for (Workspace* const workspace : {&one, &other})
            if (!Draw(*workspace, registry, show)) _exit(1);
    }
}

TEST(RunDrawFlow, LeavesOneStateWhenTheProgramIsKilled) {
    const WatchedFile file;
    Workspace one = NewWorkspace();
    Workspace other = NewWorkspace();
    std::set<std::string> states;
    for (std::size_t i = 0; i < 9; ++i) {
        other.lines[i] = u"x^2";
        other.functions[i].color = 7;
    }
    for (Workspace* const workspace : {&other, &one}) {
        workspace->functions[0].selected = 1;
        ASSERT_TRUE(Draw(*workspace, file.registry, ShownBoxes().show));
        states.insert(ReadWholeFile(file.File(), 100000).bytes);
    }
    constexpr int kKills = 60;
    for (int i = 0; i < kKills; ++i) {
        const pid_t child = fork();
        if (child == 0) DrawForever(file.File(), one, other);
        usleep(static_cast<useconds_t>(1000 + 613 * i % 20000));
        kill(child, SIGKILL);
        int state = 0;
        waitpid(child, &state, 0);
        EXPECT_TRUE(WIFSIGNALED(state));
        EXPECT_TRUE(states.contains(ReadWholeFile(file.File(), 100000).bytes)) << i;
        RemoveLeftovers(file.folder.string());
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file.folder), {}), 1) << i;
    }
}

TEST(StoreAtEnd, ReplacesTheFileOnce) {
    const WatchedFile file;
    const std::string before = ReadWholeFile(file.File(), 100000).bytes;
    Workspace workspace = NewWorkspace();
    workspace.view.Xmin = -3;
    EXPECT_TRUE(StoreAtEnd(file.registry, workspace, true));
    const std::string after = ReadWholeFile(file.File(), 100000).bytes;
    EXPECT_EQ(*file.seen, (std::set<std::string>{before, after}));
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
