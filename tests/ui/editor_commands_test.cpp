#include "ui/editor/editor_commands.h"

#include <QTest>

#include "resources/methods.h"

using namespace kalvex;

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

}  // namespace

class EditorCommandsTest final : public QObject {
    Q_OBJECT
  private slots:
    void Colours() {
        Bench bench;
        for (int number = 32777; number <= 32785; ++number) {
            QVERIFY(bench.Run(3, static_cast<CommandId>(number)));
            QCOMPARE(bench.workspace.functions[3].color, number - 32776);
        }
        QCOMPARE(bench.shows, 9);
    }
    void Types() {
        const std::pair<int, int> rows[] = {
            {32787, 1}, {32788, 2}, {32789, 3}, {32910, 4}, {32932, 5}};
        Bench bench;
        for (const auto& [number, type] : rows) {
            QVERIFY(bench.Run(8, static_cast<CommandId>(number)));
            QCOMPARE(bench.workspace.functions[8].type, type);
        }
        QCOMPARE(bench.filesAsked, std::vector<int>{8});  // only for a File line
    }
    void Methods() {
        for (const MethodChoice& choice : kMethods) {
            Bench bench;
            bench.workspace.functions[7].method.approx = 77;
            QVERIFY(bench.Run(7, choice.command));
            QCOMPARE(bench.workspace.functions[7].method.approx,
                     static_cast<std::int32_t>(choice.method));
            QCOMPARE(bench.methodsSetUp, std::vector<int>{7});
        }
    }
    void SelectToggles() {
        Bench bench;
        bench.Run(2, CommandId::Select);
        QCOMPARE(int{bench.workspace.functions[2].selected}, 1);
        bench.Run(2, CommandId::Select);
        QCOMPARE(int{bench.workspace.functions[2].selected}, 0);
    }
    void UnselectAllNeedsNoLine() {
        Bench bench;
        for (FunctionEntry& entry : bench.workspace.functions)
            entry.selected = 1;
        QVERIFY(RunCommand(bench.state, CommandId::UnselectAll));
        for (const FunctionEntry& entry : bench.workspace.functions)
            QVERIFY(!entry.selected);
    }
    void DeleteEmptiesTheLineOnly() {
        Bench bench;
        bench.workspace.lines[4] = u"x^2";
        bench.workspace.functions[4].selected = 1;
        bench.workspace.functions[4].color = 6;
        bench.Run(4, CommandId::Delete);
        QVERIFY(bench.workspace.lines[4].empty());
        QCOMPARE(int{bench.workspace.functions[4].selected}, 1);
        QCOMPARE(bench.workspace.functions[4].color, 6);
    }
    void WithoutALineNothingChanges() {
        Bench bench;
        bench.workspace.lines.fill(u"x");
        for (const CommandId command :
             {CommandId::Red, CommandId::Polar, CommandId::Select, CommandId::Delete,
              CommandId::BSplines, CommandId::File, CommandId::CubicSpline}) {
            QVERIFY(RunCommand(bench.state, command));
        }
        for (const FunctionEntry& entry : bench.workspace.functions) {
            QCOMPARE(entry.color, 0);
            QCOMPARE(entry.type, 0);
            QCOMPARE(entry.method.approx, 0);
            QVERIFY(!entry.selected);
        }
        for (const std::u16string& line : bench.workspace.lines)
            QVERIFY(line == u"x");
        QCOMPARE(bench.shows, 0);
        QVERIFY(bench.filesAsked.empty() && bench.methodsSetUp.empty());
        QVERIFY(bench.Run(9, CommandId::Red));
        QVERIFY(bench.Run(-1, CommandId::Red));
    }
    void DrawExitAndStrangers() {
        Bench bench;
        QVERIFY(RunCommand(bench.state, CommandId::Draw));
        QVERIFY(RunCommand(bench.state, CommandId::Exit));
        QVERIFY(RunCommand(bench.state, CommandId::Options));
        QVERIFY(RunCommand(bench.state, CommandId::Calculator));
        QCOMPARE(bench.draws, 1);
        QCOMPARE(bench.exits, 1);
        QCOMPARE(bench.options, 1);
        QCOMPARE(bench.calculators, 1);
        for (const CommandId command :
             {CommandId::None, CommandId::GraphTable, CommandId::Help, CommandId::InsertSin}) {
            QVERIFY(!bench.Run(0, command));
        }
    }
    void MenuFlag() {
        const std::pair<CommandId, bool> rows[] = {{CommandId::Select, false},
                                                   {CommandId::Draw, false},
                                                   {CommandId::Great, false},
                                                   {CommandId::Polar, true},
                                                   {CommandId::UnselectAll, true}};
        for (const auto& [command, open] : rows) {
            Bench bench;
            bench.state.menuOpen = true;
            bench.Run(0, command);
            QCOMPARE(bench.state.menuOpen, open);
        }
    }
};

QTEST_APPLESS_MAIN(EditorCommandsTest)
#include "editor_commands_test.moc"
