// A walk through the whole program with the keyboard alone.
#include <QComboBox>
#include <QPlainTextEdit>

#include "whole_program.h"

using namespace kalvex;

namespace {

struct KeyboardProgram : WholeProgram {
    QWidget* Target() {
        QWidget* const front = Front();
        if (front == QApplication::activePopupWidget()) return front;
        QWidget* const focused = front->focusWidget();
        return focused != nullptr ? focused : front;
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Target(), static_cast<Qt::Key>(key), modifiers);
    }
    void Ctrl(int key) { Press(key, Qt::ControlModifier); }
    void Type(const QString& text) { QTest::keyClicks(Target(), text); }
    void Replace(const QString& text) {
        Ctrl(Qt::Key_A);
        Type(text);
    }
    ViewWindow& View() { return application.graph.viewport.view; }
    GraphMode Mode() { return application.graph.mode; }
};

}  // namespace

class KeyboardRunTest final : public QObject {
    Q_OBJECT
    std::unique_ptr<KeyboardProgram> program;

  private slots:
    void initTestCase() {
        program = std::make_unique<KeyboardProgram>();
        program->Start();
        program->ClearLines();
        QVERIFY(program->Line(1)->hasFocus());
    }
    void TypesLines() {
        KeyboardProgram& p = *program;
        p.Type("s");  // offers names
        p.Press(Qt::Key_Down);
        p.Press(Qt::Key_Return);
        QCOMPARE(p.Line(1)->text(), QString("sin"));
        p.Type("(x) ");
        QCOMPARE(p.Line(1)->text(), QString("sin(x)"));  // a blank is refused
        p.Ctrl(Qt::Key_Space);
        QCOMPARE(int(p.Entry(1).selected), 1);
        p.Press(Qt::Key_Down);
        p.Type("3");
        p.Press(Qt::Key_5, Qt::AltModifier);
        p.Ctrl(Qt::Key_1);
        p.Ctrl(Qt::Key_Space);
        QCOMPARE(p.Entry(2).color, 5);
        QCOMPARE(p.Entry(2).type, EquationType::Polar);
        p.Press(Qt::Key_Tab);
        QVERIFY(p.Line(3)->hasFocus());
    }
    void UsesTheMenus() {
        KeyboardProgram& p = *program;
        p.Press(Qt::Key_F10);
        QVERIFY(p.IsInFront("mainMenu"));
        p.Press(Qt::Key_Down);
        p.Press(Qt::Key_Return);  // `Select`
        QCOMPARE(int(p.Entry(3).selected), 1);
        p.Press(Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(int(p.Entry(1).selected), 0);
        p.Press(Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(p.IsInFront("editMenu"));
        p.Press(Qt::Key_Down);  // `Function`, `Trig`, `sin`
        p.Press(Qt::Key_Right);
        p.Press(Qt::Key_Right);
        p.Press(Qt::Key_Return);
        QCOMPARE(p.Line(3)->text(), QString("sin("));
        p.Ctrl(Qt::Key_D);
        QCOMPARE(p.Line(3)->text(), QString());
        p.Press(Qt::Key_Up);
        p.Press(Qt::Key_Up);
        p.Ctrl(Qt::Key_Space);
        QCOMPARE(int(p.Entry(1).selected), 1);
    }
    void UsesTheDialogsOfTheEditor() {
        KeyboardProgram& p = *program;
        p.Ctrl(Qt::Key_Comma);
        QVERIFY(p.IsInFront("optionsDialog"));
        p.Press(Qt::Key_Down);
        p.Press(Qt::Key_Return);
        QTRY_COMPARE(p.application.workspace.options.Wight, 2);
        QVERIFY(p.IsInFront("editor"));
        p.Press(Qt::Key_F9);
        QVERIFY(p.IsInFront("calculatorDialog"));
        p.Replace("2+3*4");
        p.Press(Qt::Key_Return);
        QCOMPARE(static_cast<QLineEdit*>(p.Target())->text(), QString("14"));
        p.Press(Qt::Key_Escape);
        QVERIFY(p.IsInFront("editor"));
        p.Press(Qt::Key_F1);
        QVERIFY(p.IsInFront("helpWindow"));
        p.Press(Qt::Key_PageDown);
        p.Press(Qt::Key_Escape);
        QVERIFY(p.IsInFront("editor"));
        p.Press(Qt::Key_F1, Qt::ShiftModifier);
        QVERIFY(p.IsInFront("aboutBox"));
        p.Press(Qt::Key_Return);
        QVERIFY(p.IsInFront("editor"));
        QVERIFY(p.Line(1)->hasFocus());
    }
    void DrawsAndZooms() {
        KeyboardProgram& p = *program;
        p.Press(Qt::Key_F5);
        QTRY_VERIFY(p.application.graphWindow && p.Canvas().RedrawCount() > 0);
        QVERIFY(p.IsInFront("graph"));
        p.WaitForPicture();
        const struct {
            Qt::Key key;
            double xmin;
            double xmax;
        } rows[] = {
            {Qt::Key_Plus, -5, 5},   {Qt::Key_Minus, -10, 10},     {Qt::Key_Right, -8, 12},
            {Qt::Key_Left, -10, 10}, {Qt::Key_2, -9.4245, 9.4245}, {Qt::Key_1, -6.5, 6.5},
        };
        for (const auto& row : rows) {
            p.Press(row.key);
            QVERIFY2(std::fabs(p.View().Xmin - row.xmin) < 1e-9,
                     qPrintable(QString::number(row.key)));
            QVERIFY2(std::fabs(p.View().Xmax - row.xmax) < 1e-9,
                     qPrintable(QString::number(row.key)));
            p.WaitForPicture();
        }
        p.Press(Qt::Key_W);
        QVERIFY(p.IsInFront("viewWindowDialog"));
        p.Replace("-4");
        p.Press(Qt::Key_Return);
        QTRY_COMPARE(p.View().Xmin, -4.0);
        p.WaitForPicture();
        p.Press(Qt::Key_Backspace);
        p.Press(Qt::Key_0);  // automatic
        p.WaitForPicture();
        p.Press(Qt::Key_F);
        QVERIFY(p.IsInFront("factorDialog"));
        p.Replace("3");
        p.Press(Qt::Key_Return);
        QTRY_COMPARE(p.View().Xfactor, 3.0);
        QVERIFY(p.IsInFront("graph"));
    }
    void PicksPoints() {
        KeyboardProgram& p = *program;
        p.Press(Qt::Key_1);
        p.WaitForPicture();
        p.Press(Qt::Key_B);
        QVERIFY(p.Mode() == GraphMode::Box);
        for (int i = 0; i < 5; ++i)
            p.Ctrl(Qt::Key_Left);
        p.Press(Qt::Key_Return);
        for (int i = 0; i < 8; ++i) {
            p.Ctrl(Qt::Key_Right);
            p.Ctrl(Qt::Key_Down);
        }
        p.Press(Qt::Key_Return);
        QVERIFY(p.Mode() == GraphMode::Normal);
        QVERIFY(p.View().Xmax - p.View().Xmin < 6.5);
        p.WaitForPicture();
        const double width = p.View().Xmax - p.View().Xmin;
        p.Press(Qt::Key_O);
        QVERIFY(p.Mode() == GraphMode::Centre);
        p.Press(Qt::Key_Return);
        QVERIFY(p.View().Xmax - p.View().Xmin > 2 * width);
        p.WaitForPicture();
        p.Press(Qt::Key_I);
        p.Press(Qt::Key_Escape);
        QVERIFY(p.Mode() == GraphMode::Normal);
    }
    void TracesAnalysesAndExports() {
        KeyboardProgram& p = *program;
        p.Press(Qt::Key_1);
        p.WaitForPicture();
        p.Press(Qt::Key_T);
        const int middle = p.application.graph.trace.index;
        p.Press(Qt::Key_Right);
        QCOMPARE(p.application.graph.trace.index, middle + 1);
        p.Press(Qt::Key_A);
        QVERIFY(p.IsInFront("report"));
        p.Press(Qt::Key_Right);
        auto* const pages = p.Front()->findChild<QTabWidget*>("reportPages");
        QCOMPARE(pages->currentIndex(), 1);
        p.Ctrl(Qt::Key_S);
        auto* const name = p.In<QLineEdit>("saveResultDialog", "fileNameEdit");
        QVERIFY(name != nullptr);
        const QString path = p.folder.filePath("report.txt");
        p.Replace(path);
        p.Press(Qt::Key_Return);
        QTRY_VERIFY(p.Contents(path).startsWith("\xFF\xFE"));
        QVERIFY(p.LastBox().text == u"Saved!");
        QVERIFY(p.IsInFront("report"));
        p.Press(Qt::Key_Escape);
        QVERIFY(p.IsInFront("graph"));
        p.Press(Qt::Key_Escape);
        QVERIFY(p.Mode() == GraphMode::Normal);
    }
    void FillsTheScreenAndSavesPictures() {
        KeyboardProgram& p = *program;
        p.Press(Qt::Key_F11);
        QTRY_VERIFY(p.Graph().isFullScreen());
        p.Press(Qt::Key_NumberSign);
        QTRY_VERIFY(!p.Graph().isFullScreen());
        p.WaitForPicture();
        p.Press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY(p.LastBox().text == u"Save");
        p.Ctrl(Qt::Key_P);
        QVERIFY(p.IsInFront("printPreview"));
        p.Press(Qt::Key_Escape);
        QVERIFY(p.IsInFront("graph"));
        p.Ctrl(Qt::Key_S);
        QVERIFY(p.In<QLineEdit>("savePictureDialog", "fileNameEdit") != nullptr);
        p.Replace(p.folder.filePath("curve.svg"));
        p.Press(Qt::Key_Return);
        QTRY_VERIFY(p.Contents(p.folder.filePath("curve.svg")).contains("<svg"));
        QVERIFY(p.IsInFront("graph"));
    }
    void DrawsAPointFile() {
        KeyboardProgram& p = *program;
        p.Press(Qt::Key_F5);
        QVERIFY(p.IsInFront("editor"));
        const QString points = p.folder.filePath("points.txt");
        QFile file(points);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("-5 1\n0 4\n5 2\n") > 0);
        file.close();
        for (int i = 0; i < 3; ++i)
            p.Press(Qt::Key_Down);
        p.Ctrl(Qt::Key_M);  // a method's two strokes do nothing unless the line is a File line
        p.Press(Qt::Key_C);
        QCOMPARE(p.Entry(4).method.approx, 0);
        p.Ctrl(Qt::Key_4);
        QVERIFY(p.In<QLineEdit>("openFileDialog", "fileNameEdit") != nullptr);
        p.Replace(points);
        p.Press(Qt::Key_Return);
        QVERIFY(p.IsInFront("editor"));
        QCOMPARE(p.Line(4)->text(), points);
        p.Ctrl(Qt::Key_M);
        p.Press(Qt::Key_C);
        QCOMPARE(p.Entry(4).method.approx, 12);
        p.Ctrl(Qt::Key_Space);
        const std::size_t boxes = p.shown.boxes->size();
        p.Press(Qt::Key_F5);
        QVERIFY(p.IsInFront("graph"));
        QTRY_COMPARE(CountOf(p.Entry(4).points), std::size_t{3});
        QCOMPARE(p.shown.boxes->size(), boxes);
    }
    void Ends() {
        KeyboardProgram& p = *program;
        p.WaitForPicture();
        p.Press(Qt::Key_Escape);
        QVERIFY(p.IsInFront("editor"));
        p.Ctrl(Qt::Key_Q);
        QCOMPARE(p.quits, 1);
    }
    void cleanupTestCase() { program.reset(); }
};

QTEST_MAIN(KeyboardRunTest)
#include "keyboard_run_test.moc"
