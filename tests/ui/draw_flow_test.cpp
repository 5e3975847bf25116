#include "ui/draw_flow.h"

#include "window_fixture.h"

using namespace kalvex;

class DrawFlowTest final : public QObject {
    Q_OBJECT

    static std::vector<std::string> Writes(const TestProgram& program) {
        std::vector<std::string> writes;
        for (const std::string& operation : *program.store.log) {
            if (operation.starts_with("write")) writes.push_back(operation);
        }
        return writes;
    }

  private slots:
    void NothingSelectedWarnsAfterStoring() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        program.Line(3)->setText("x+1");
        program.Editor().Run(CommandId::Draw);
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().caption == u"Warning!");
        QVERIFY(program.LastBox().text ==
                u"You must choose function!\n\nTo select the double-tap the function name");
        QVERIFY(program.LastBox().icon == MessageIcon::Exclamation);
        QVERIFY(program.application.graphWindow == nullptr);
        QVERIFY(program.store.registry.readText("3", "equ") == u"x+1");
    }
    void TextsThenSettings() {
        TestProgram program;
        program.Start();
        program.store.log->clear();
        program.Entry(1).selected = 1;
        QVERIFY(
            RunDrawFlow(program.application.workspace, program.store.registry, program.shown.show));
        const auto writes = Writes(program);
        const auto lastText = std::find(writes.begin(), writes.end(), "writeText 9/equ");
        const auto firstNumber = std::find(writes.begin(), writes.end(), "writeNumber 1/color");
        QVERIFY(lastText != writes.end() && firstNumber != writes.end());
        QVERIFY(lastText < firstNumber);
    }
    void Messages() {
        struct Row {
            int type;
            const char16_t* line;
            std::u16string text;
        };
        const Row rows[] = {
            {2, u"", u"Error in 2 function:\n\nEmpty string"},
            {2, u"2*(x",
             u"Error in 2 function:\n2*(x\nVarious number of opening and closing brackets"},
            {5, u"x+y)", u"Error in 2 function:\nx+y)\nToo many closing brackets"},
            {3, u"sin(x)",
             u"You have entered only one equation, while the parametric type requires two!"},
        };
        for (const Row& row : rows) {
            TestProgram program;
            program.Start();
            program.ClearLines();
            program.Entry(2).type = row.type;
            program.Entry(2).selected = 1;
            program.Line(2)->setText(ToQString(row.line));
            program.Editor().Run(CommandId::Draw);
            QCOMPARE(program.shown.boxes->size(), std::size_t{1});
            QVERIFY2(program.LastBox().text == row.text,
                     qPrintable(ToQString(program.LastBox().text)));
            QVERIFY(program.LastBox().caption == u"Error!");
            QVERIFY(program.LastBox().icon == MessageIcon::Stop);
            QVERIFY(program.application.graphWindow == nullptr);
            QVERIFY(program.Editor().isVisible());
        }
    }
    void AFailingStoreStopsSilently() {
        for (const char* const operation :
             {"open 5/", "writeText 7/equ", "writeNumber 3/type", "writeText 9/beta2"}) {
            TestProgram program;
            program.Start();
            program.Entry(1).selected = 1;
            *program.store.fails = FromNth(operation, 0);
            program.Editor().Run(CommandId::Draw);
            QVERIFY2(program.shown.boxes->empty(), operation);
            QVERIFY2(program.application.graphWindow == nullptr, operation);
        }
    }
    void ASelectedFileLineIsSkipped() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(1).type = 4;
        program.Entry(1).selected = 1;
        program.Editor().ShowLines();
        program.Line(1)->setText("/no such/points.txt");
        program.OpenGraph();
        QVERIFY(program.shown.boxes->empty());
        QVERIFY(program.Entry(1).text == u"points.txt");
    }
};

QTEST_MAIN(DrawFlowTest)
#include "draw_flow_test.moc"
