#include "ui/report/report_window.h"

#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>

#include "resources/platform.h"
#include "ui/report/analysis_flow.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

/// The program with sin(x) drawn and traced.
struct TracedProgram : TestProgram {
    void Open(const QString& text = "sin(x)", int type = 2) {
        Start();
        ClearLines();
        Entry(1).type = static_cast<EquationType>(type);
        Entry(1).selected = 1;
        Line(1)->setText(text);
        OpenGraph();
        QTest::keyClick(&Graph(), Qt::Key_T);
    }
    QDialog* Report() { return Graph().findChild<QDialog*>("report"); }
    QTabWidget* Pages() { return Report()->findChild<QTabWidget*>("reportPages"); }
    QPlainTextEdit* Text(int page) {
        return Pages()->widget(page)->findChild<QPlainTextEdit*>("reportText");
    }
    void Analyse() {
        QTest::mouseClick(Graph().findChild<QPushButton*>("actionKey"), Qt::LeftButton);
        QVERIFY(Report() != nullptr);
        Report()->activateWindow();  // the offscreen platform leaves it behind its parent
        QTRY_VERIFY(QApplication::activeWindow() == Report());
    }
    /// Opens `Export` and chooses one of its entries.
    void Export(CommandId command) {
        Click(*Report(), "actionKey");
        QMenu* const menu = OpenedMenu(*Report(), "exportMenu");
        QVERIFY(menu != nullptr);
        ActionOf(*menu, command)->trigger();
        menu->close();
    }
    void SaveAs(const QString& path) {
        auto* const dialog = Report()->findChild<QFileDialog*>("saveResultDialog");
        QVERIFY(dialog != nullptr);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        QTRY_VERIFY(!shown.boxes->empty());
        QTRY_VERIFY(Report()->findChild<QFileDialog*>("saveResultDialog") == nullptr);
    }
};

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class ReportWindowTest final : public QObject {
    Q_OBJECT
  private slots:
    void ShowsFourPages() {
        TracedProgram program;
        program.Open();
        program.Analyse();
        QCOMPARE(program.Report()->windowTitle(), QString("Analysis function"));
        const char* const titles[] = {"General", "Roots", "Maximums", "Minimums"};
        const auto pages = ReportPages(program.application.analysis, u"sin(x)");
        QCOMPARE(program.Pages()->count(), 4);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(program.Pages()->tabText(i), QString(titles[i]));
            QPlainTextEdit* const box = program.Text(i);
            const QString text = ToQString(pages[static_cast<std::size_t>(i)].text);
            QCOMPARE(box->toPlainText(), QString(text).remove('\r'));
            QVERIFY(box->isReadOnly());
            QCOMPARE(box->textCursor().position(), box->toPlainText().size());
            QCOMPARE(box->verticalScrollBar()->value(), 0);
            QCOMPARE(box->accessibleName(), QString(titles[i]));
        }
        // Two pixels are left free around the text.
        const QWidget& page = *program.Pages()->currentWidget();
        QCOMPARE(program.Text(0)->geometry(), page.rect().adjusted(2, 2, -2, -2));
        QVERIFY(program.application.analysis.rootCount == 7);
        QVERIFY(program.application.analysis.roots.size() == 7);
    }
    void ReleasesTheArraysWhenItCloses() {
        TracedProgram program;
        for (const char* const way : {"saveless Ok", "Escape", "Enter", "close"}) {
            if (!program.application.graphWindow) program.Open();
            program.Analyse();
            if (way == std::string_view("saveless Ok")) program.Click(*program.Report(), "menuKey");
            if (way == std::string_view("Escape"))
                QTest::keyClick(program.Report(), Qt::Key_Escape);
            if (way == std::string_view("Enter")) QTest::keyClick(program.Text(0), Qt::Key_Return);
            if (way == std::string_view("close")) program.Report()->close();
            QTRY_VERIFY2(program.Report() == nullptr, way);
            QVERIFY(program.application.analysis.roots.empty());
            QVERIFY(program.application.analysis.maximums.empty());
            QCOMPARE(program.application.analysis.rootCount, 7);
            QVERIFY(program.application.graph.mode == GraphMode::Trace);
        }
    }
    void AnalysesTheViewOnTheScreen() {
        TracedProgram program;
        program.Open();
        program.application.graph.viewport.view.Xmin = -1;
        program.application.graph.viewport.view.Xmax = 1;
        const int count = program.Canvas().RedrawCount();
        program.Canvas().Apply(PictureChange::Curves);
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        QTest::keyClick(&program.Graph(), Qt::Key_A);
        QVERIFY(program.Text(1)->toPlainText().startsWith(
            "The roots of sin(x)\non the interval (-1.000000,1.000000):\nx=-0.0"));
    }
    // The keys before A have moved the view, but the picture has not been computed again yet.
    void AnalysesOnePictureOnly() {
        TracedProgram program;
        program.Open();
        QTest::keyClick(&program.Graph(), Qt::Key_Minus);
        QTest::keyClick(&program.Graph(), Qt::Key_A);
        QVERIFY(program.Report() != nullptr);
        const AnalysisResult& shown = program.application.analysis;
        QCOMPARE(shown.a, -20.0);
        QCOMPARE(shown.rootCount, 13);
        QCOMPARE(program.Entry(1).samples.front().x, -20.0);
    }
    void IsASnapshot() {
        TracedProgram program;
        program.Open("x");
        program.Analyse();
        program.application.graph.viewport.view.Xmin = 5;
        const int count = program.Canvas().RedrawCount();
        program.Canvas().Apply(PictureChange::Curves);
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        QCOMPARE(program.Entry(1).samples.front().x, 5.0);
        const QString path = program.folder.filePath("points.txt");
        program.Export(CommandId::FunctionToFile);
        program.SaveAs(path);
        QVERIFY(Contents(path).startsWith("-10.0"));
    }
    void KeysScrollAndSelect() {
        TracedProgram program;
        program.Open("sin(20x)");
        program.Analyse();
        program.Pages()->setCurrentIndex(1);
        QPlainTextEdit* const text = program.Text(1);
        text->setFocus();
        const QScrollBar& bar = *text->verticalScrollBar();
        QVERIFY(bar.maximum() > 10);
        for (const auto& [key, value] :
             {std::pair{Qt::Key_Down, 1}, {Qt::Key_Up, 0}, {Qt::Key_PageDown, bar.pageStep()}}) {
            QTest::keyClick(text, key);
            QCOMPARE(bar.value(), value);
        }
        QTest::keyClick(text, Qt::Key_Up, Qt::ShiftModifier);
        QVERIFY(text->textCursor().hasSelection());
        QTest::keyClick(text, Qt::Key_Tab);
        QVERIFY(!text->hasFocus());
    }
    void IsOfferedInTraceModeForSomeTypes() {
        TracedProgram program;
        program.Open("2", 1);
        QTest::keyClick(&program.Graph(), Qt::Key_A);
        QVERIFY(program.Report() == nullptr);  // polar
        TracedProgram other;
        other.Open("2");
        QTest::keyClick(&other.Graph(), Qt::Key_Escape);
        QTest::keyClick(&other.Graph(), Qt::Key_A);
        QVERIFY(other.Report() == nullptr);  // no trace
    }
    void SelectsAndCopies() {
        TracedProgram program;
        program.Open("5");
        program.Analyse();
        program.Pages()->setCurrentIndex(1);
        program.Text(1)->setFocus();
        QTest::keyClick(program.Text(1), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(program.Text(1), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString("Roots of 5 on the interval (-10.000000,10.000000) not found.\n"));
        QTest::keyClicks(program.Text(1), "x");
        QVERIFY(!program.Text(1)->toPlainText().contains('x'));
    }
    void GoesThroughThePagesByKeys() {
        TracedProgram program;
        program.Open();
        program.Analyse();
        QTest::keyClick(program.Pages()->tabBar(), Qt::Key_Right);
        QCOMPARE(program.Pages()->currentIndex(), 1);
        QTest::keyClick(program.Text(1), Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(program.Pages()->currentIndex(), 2);
        QTest::keyClick(program.Report(), Qt::Key_F10);
        QVERIFY(OpenedMenu(*program.Report(), "exportMenu") != nullptr);
    }
    void ExportsTheReport() {
        TracedProgram program;
        program.Open();
        program.Analyse();
        const QString path = program.folder.filePath("Отчёт 1.kx");
        const auto expected = ReportText(program.application.analysis, u"sin(x)");
        program.Export(CommandId::ReportToFile);
        program.SaveAs(path);
        QByteArray bytes("\xFF\xFE");
        for (const char16_t unit : expected)
            bytes += QByteArray{1, static_cast<char>(unit & 0xFFU)} +
                     QByteArray{1, static_cast<char>(unit >> 8U)};
        QCOMPARE(Contents(path), bytes);
        QVERIFY(program.LastBox().text == u"Saved!");
        QCOMPARE(program.application.windowState.folder, program.folder.path());
        program.shown.boxes->clear();
        program.Export(CommandId::ReportToFile);
        program.SaveAs(QDir::root().filePath("proc/no.txt"));
        QTRY_COMPARE(program.shown.boxes->size(), std::size_t{2});
        QCOMPARE(program.application.windowState.folder, program.folder.path());
    }
    void ExportsThePoints() {
        TracedProgram program;
        program.Open("1/x");
        program.Analyse();
        const QString path = program.folder.filePath("points.txt");
        QTest::keyClick(program.Report(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        program.SaveAs(path);
        const auto& samples = program.Entry(1).samples;
        const auto defined =
            std::count_if(samples.begin(), samples.end(),
                          [](const CurveSample& sample) { return sample.status == 0; });
        QCOMPARE(Contents(path).count('\n'), static_cast<qsizetype>(defined));
        QVERIFY(Contents(path).startsWith("-10.00000000000000000 -0.10000000000000001\n"));
    }
    void SavesTheReportByTheKeyboard() {
        TracedProgram program;
        program.Open();
        program.Analyse();
        QTest::keyClick(program.Text(0), Qt::Key_S, Qt::ControlModifier);
        program.SaveAs(program.folder.filePath("typed"));
        QVERIFY(Contents(program.folder.filePath("typed.txt")).startsWith("\xFF\xFE"));
    }
    void AnalizFunctionDoesNothing() {
        TracedProgram program;
        program.Open();
        program.Analyse();
        program.Export(CommandId::AnalizFunction);
        QVERIFY(program.Report() != nullptr);
        QVERIFY(program.Report()->findChild<QFileDialog*>("saveResultDialog") == nullptr);
        QVERIFY(program.shown.boxes->empty());
    }
    void CancelWritesNothing() {
        TracedProgram program;
        program.Open();
        program.Analyse();
        program.Export(CommandId::FunctionToFile);
        auto* const dialog = program.Report()->findChild<QFileDialog*>("saveResultDialog");
        QTest::keyClick(dialog, Qt::Key_Escape);
        QTRY_VERIFY(!program.Report()->findChild<QFileDialog*>("saveResultDialog"));
        QVERIFY(program.shown.boxes->empty());
    }
    void TheOtherFormIsOneText() {
        TestProgram program;
        QWidget window;
        window.resize(480, 640);
        window.show();
        AnalysisResult result;
        QString folder;
        FunctionEntry entry;
        entry.type = EquationType::Decart;
        entry.text = u"x<b>1</b>";
        entry.samples.resize(3);
        OpenAnalysis({&window, result, folder, program.shown.show, u"SmartPhone"}, entry, {});
        auto* const report = window.findChild<QDialog*>("report");
        QVERIFY(report != nullptr);
        auto* const text = report->findChild<QPlainTextEdit*>("reportText");
        QCOMPARE(text->toPlainText(), ToQString(ReportText(result, entry.text)).remove('\r'));
        QVERIFY(report->findChild<QTabWidget*>() == nullptr);
        program.Click(*report, "actionKey");
        const QMenu* const menu = OpenedMenu(*report, "exportMenu");
        QCOMPARE(menu->actions().size(), 2);
        for (const QAction* const action : menu->actions())
            QVERIFY(!action->isEnabled());
        OpenedMenu(*report, "exportMenu")->close();
        report->activateWindow();
        QTRY_VERIFY(QApplication::activeWindow() == report);
        QCOMPARE(text->accessibleName(), QString("Analysis function"));
        QTest::keyClick(report, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(report->findChild<QFileDialog*>("saveResultDialog") == nullptr);
        program.Click(*report, "menuKey");
        QVERIFY(result.roots.empty());
    }
    void FitsASmallWindow() {
        for (const QSize size : {QSize(240, 320), QSize(480, 640), QSize(1280, 800)}) {
            TracedProgram program;
            program.Open("sin(20x)");
            program.Graph().resize(size);
            program.Analyse();
            QVERIFY(program.Report()->width() <= qMax(size.width(), program.Graph().width()));
            QVERIFY(program.Report()->height() <= qMax(size.height(), program.Graph().height()));
            for (int i = 0; i < 4; ++i)
                QVERIFY(program.Pages()->tabBar()->tabRect(i).right() < program.Pages()->width());
        }
    }
};

QTEST_MAIN(ReportWindowTest)
#include "report_window_test.moc"
