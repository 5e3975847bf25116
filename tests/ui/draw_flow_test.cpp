#include "commands/draw_flow.h"

#include <QFile>
#include <QFileInfo>

#include "window_fixture.h"

using namespace kalvex;

namespace {

/// A program whose lines draw point files.
struct FileProgram : TestProgram {
    FileProgram() {
        Start();
        ClearLines();
    }
    void Write(const QString& path, const QString& text) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }
    QString AddFile(int number, const QString& text, std::int32_t method) {
        const QString path = folder.filePath(QString("points%1.txt").arg(number));
        Write(path, text);
        Entry(number).type = EquationType::File;
        Entry(number).method.approx = method;
        Entry(number).selected = 1;
        Editor().ShowLines();
        Line(number)->setText(path);
        return path;
    }
};

}  // namespace

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
        bool ready = false;
        RunDrawFlow(program.application.workspace, program.store.registry, program.shown.show,
                    [&ready] { ready = true; });
        QVERIFY(ready);
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
            program.Entry(2).type = static_cast<EquationType>(row.type);
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
    void AMissingPointFileStopsTheDrawing() {
        FileProgram program;
        program.AddFile(1, "", 8);
        program.Line(1)->setText("/no such/points.txt");
        program.Editor().Run(CommandId::Draw);
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().caption == u"Warning!");
        QVERIFY(program.LastBox().text == u"Error in file!");
        QVERIFY(program.LastBox().icon == MessageIcon::Exclamation);
        QVERIFY(program.application.graphWindow == nullptr);
        QVERIFY(program.Entry(1).text == u"points.txt");
    }
    void PointFilesAreReadAfresh() {
        FileProgram program;
        const QString path = program.AddFile(1, "0 1\n1 2\n2 0\n", 8);
        program.OpenGraph();
        QCOMPARE(CountOf(program.Entry(1).points), std::size_t{3});
        QCOMPARE(program.Entry(1).samples.size(),
                 static_cast<std::size_t>(program.Canvas().width()));
        program.Graph().Run(CommandId::GraphTable);
        program.Write(path, "0 1\n1 2\n");
        program.OpenGraph();
        QCOMPARE(CountOf(program.Entry(1).points), std::size_t{2});
        QVERIFY(program.shown.boxes->empty());
    }
    void TermsAreComparedWithThePoints() {
        const struct {
            std::int32_t terms;
            bool good;
        } rows[] = {{0, false}, {-5, false}, {1, true}, {3, true}, {4, false}};
        for (const auto& row : rows) {
            FileProgram program;
            program.AddFile(2, "0 1\n1 2\n2 0\n", 0);
            program.Entry(2).method.approx_val = row.terms;
            program.Editor().Run(CommandId::Draw);
            QCOMPARE(program.application.graphWindow != nullptr, row.good);
            if (row.good) continue;
            QVERIFY(program.LastBox().text ==
                    u"In function 2:\nThe number of terms to use in the approximating polynomial, "
                    u"must be at least 1 and it must less than the number of input points.");
            QVERIFY(program.LastBox().caption == u"Warning!");
        }
    }
    void ManyPointsAreAskedFor() {
        const struct {
            int points;
            MessageAnswer answer;
            std::size_t boxes;
            bool drawn;
        } rows[] = {{50, MessageAnswer::No, 0, true},
                    {51, MessageAnswer::Yes, 2, true},
                    {51, MessageAnswer::No, 2, false}};
        for (const auto& row : rows) {
            QString text;
            for (int i = 0; i < row.points; ++i)
                text += QString("%1 %2\n").arg(i).arg(i % 7);
            FileProgram program;
            const QString path = program.AddFile(1, text, 8);
            program.AddFile(3, text, 7);
            *program.shown.answer = row.answer;
            program.Editor().Run(CommandId::Draw);
            QCOMPARE(program.shown.boxes->size(), row.boxes);
            QCOMPARE(program.application.graphWindow != nullptr, row.drawn);
            if (row.boxes == 0) continue;
            const MessageBox& box = program.shown.boxes->front();
            QCOMPARE(ToQString(box.text), "The file " + QFileInfo(path).fileName() +
                                              " has very many lines, the construction schedule "
                                              "can take a very long time. Continue?");
            QVERIFY(box.buttons == MessageButtons::YesNo);
            QVERIFY(box.icon == MessageIcon::Information);
            QVERIFY(box.caption == u"Warning!");
        }
    }
    void AFailingMethodIsToldOncePerDraw() {
        FileProgram program;
        program.AddFile(1, "0 1\n1 2\n2 0\n3 3\n", 9);
        program.OpenGraph();
        QTRY_COMPARE(program.shown.boxes->size(), std::size_t{1});
        const QString text = ToQString(program.LastBox().text);
        QVERIFY2(text.contains("function 1") && text.contains("odd number of points"),
                 qPrintable(text));
        const int count = program.Canvas().RedrawCount();
        program.Graph().Run(CommandId::QuickInit);
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        QTest::qWait(30);
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        program.Graph().Run(CommandId::GraphTable);
        program.OpenGraph();
        QTRY_COMPARE(program.shown.boxes->size(), std::size_t{2});
    }
};

QTEST_MAIN(DrawFlowTest)
#include "draw_flow_test.moc"
