// The calculator, driven by real events.
#include "ui/dialogs/calculator_dialog.h"

#include <QDialog>
#include <QLineEdit>

#include "resources/platform.h"
#include "ui/parts/touch.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

struct CalculatorProgram : TestProgram {
    QPointer<QDialog> dialog;

    void Find(QWidget& window) {
        dialog = window.findChild<QDialog*>("calculatorDialog");
        QVERIFY(dialog != nullptr);
        QTRY_COMPARE(QApplication::focusWidget(), Edit());
    }
    void OpenGraphFirst() {
        Start();
        ClearLines();
        Entry(1).selected = 1;
        Editor().ShowLines();
        Line(1)->setText("x");
        OpenGraph();
        QTest::qWait(30);
    }
    void Open() {
        if (!application.graphWindow) OpenGraphFirst();
        Graph().OpenMenu();
        QMenu* const menu = OpenedMenu(Graph(), "graphMenu");
        ActionOf(*menu, CommandId::Calculator)->trigger();
        menu->close();
        Find(Graph());
    }
    QLineEdit* Edit() { return dialog->findChild<QLineEdit*>("expression"); }
    QString Detail() { return dialog->findChild<QLabel*>("detail")->text(); }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Types a line over whatever stands there and calculates it.
    void Calc(const QString& text) {
        Edit()->selectAll();
        Type(text);
        Press(Qt::Key_Return);
    }
};

}  // namespace

class CalculatorDialogTest final : public QObject {
    Q_OBJECT
  private slots:
    void Place() {
        const struct {
            QSize dialog;
            QRect screen;
            std::u16string_view platform;
            QPoint place;
        } rows[] = {
            {{320, 180}, {0, 0, 1280, 800}, u"PocketPC", {480, 346}},
            {{320, 180}, {0, 0, 1280, 800}, u"Desktop", {480, 310}},
            {{320, 180}, {0, 0, 1280, 800}, u"", {480, 310}},
            {{240, 100}, {0, 0, 240, 320}, u"PocketPC", {0, 130}},
            {{200, 100}, {0, 26, 240, 268}, u"PocketPC", {20, 130}},
            {{200, 100}, {1280, 100, 1000, 600}, u"PocketPC", {1680, 370}},
            {{200, 101}, {-1000, 0, 1000, 600}, u"Desktop", {-600, 249}},
            // By the rule alone the dialog would hang over the lower end of the screen.
            {{200, 300}, {0, 0, 240, 320}, u"PocketPC", {20, 20}},
            {{300, 400}, {0, 0, 240, 320}, u"PocketPC", {0, 0}},
            {{300, 400}, {10, 20, 240, 320}, u"Desktop", {10, 20}},
        };
        for (const auto& row : rows)
            QCOMPARE(CalculatorPlace(row.dialog, row.screen, row.platform), row.place);
    }
    void OpensWithTheHintSelected() {
        CalculatorProgram program;
        program.Open();
        QCOMPARE(program.dialog->windowTitle(), QString("Calculator"));
        QCOMPARE(program.Edit()->text(), QString("Enter expression here"));
        QCOMPARE(program.Edit()->selectedText(), program.Edit()->text());
        QCOMPARE(QApplication::focusWidget(), program.Edit());
        QCOMPARE(program.Detail(), QString());
        QCOMPARE(program.Edit()->property("controlId").toInt(), 1025);
        auto* const calc = program.dialog->findChild<QPushButton*>("saveKey");
        auto* const cancel = program.dialog->findChild<QPushButton*>("cancelKey");
        QCOMPARE(calc->text(), QString("Calc"));
        QCOMPARE(calc->property("controlId").toInt(), 1009);
        QCOMPARE(cancel->text(), QString("Cancel"));
        QCOMPARE(cancel->property("controlId").toInt(), 1024);
        for (QWidget* const control : {static_cast<QWidget*>(program.Edit()),
                                       static_cast<QWidget*>(calc), static_cast<QWidget*>(cancel)})
            QVERIFY(control->height() >= kTouchTarget);
        const QRect screen = program.dialog->screen()->availableGeometry();
        const QPoint place = CalculatorPlace(program.dialog->size(), screen, kPlatformType);
        QCOMPARE(program.dialog->pos(), place);
        program.Type("2");
        QCOMPARE(program.Edit()->text(), QString("2"));
    }
    void Calculates() {
        CalculatorProgram program;
        program.Open();
        const struct {
            const char* typed;
            const char* text;
            const char* detail;
        } rows[] = {
            {"2+2", "4", "4"},
            {"1/3", "0.333333", "0.3333333333333333"},
            {"x", "0", "0"},
            {"-1/2", "-0.500000", "-0.5"},
            {"1/0", "2147483647", "Devide error\nDivision by 0 not allowed"},
            {"lg(0)", "2147483647",
             "lg error\nThe logarithm of a negative argument is not specified"},
            {"2^40", "2147483647", "1099511627776"},
            {"exp(999)", "inf", "inf"},
        };
        for (const auto& row : rows) {
            program.Calc(row.typed);
            QCOMPARE(program.Edit()->text(), QString(row.text));
            QCOMPARE(program.Edit()->selectedText(), QString(row.text));
            QCOMPARE(program.Detail(), QString(row.detail));
            QCOMPARE(program.Edit()->accessibleDescription(), QString(row.detail));
            QVERIFY(program.shown.boxes->empty());
        }
        // The text below belongs to the expression that was calculated.
        program.Press(Qt::Key_Up);
        QCOMPARE(program.Detail(), QString());
        QCOMPARE(program.Edit()->accessibleDescription(), QString());
        program.Calc("1/0");
        program.Type("7*6");  // over the result
        QCOMPARE(program.Detail(), QString());
        program.Click(*program.dialog, "saveKey");
        QCOMPARE(program.Edit()->text(), QString("42"));
    }
    void RejectsAndLeavesTheText() {
        CalculatorProgram program;
        program.Open();
        const std::pair<const char*, std::u16string_view> rows[] = {
            {"2 + 2", u"Error There is an unknown lexeme"},  // this line accepts blanks
            {"y", u"Error There is an unknown lexeme"},
            {"(1", u"Error Various number of opening and closing brackets"},
            {"*1", u"Error Expression can not begin with the characters: *,/,^)"},
        };
        program.Calc("1/3");
        for (const auto& [typed, message] : rows) {
            program.Calc(typed);
            QVERIFY(program.LastBox().text == message);
            QVERIFY(program.LastBox().caption == u"Error!");
            QVERIFY(program.LastBox().icon == MessageIcon::Stop);
            QCOMPARE(program.Edit()->text(), QString(typed));
            QCOMPARE(program.Detail(), QString());
            QCOMPARE(QApplication::focusWidget(), program.Edit());
        }
        QVERIFY(program.dialog->isVisible());
        program.Edit()->clear();
        program.Press(Qt::Key_Return);
        QVERIFY(program.LastBox().text == u"Error Empty string");
    }
    void TheHintIsNoExpression() {
        CalculatorProgram program;
        program.Open();
        program.Press(Qt::Key_Return);
        QVERIFY(program.LastBox().text == u"Error There is an unknown lexeme");
        QCOMPARE(program.Edit()->text(), QString("Enter expression here"));
        program.Edit()->setText("typed");
        program.Press(Qt::Key_Up);
        QCOMPARE(program.Edit()->text(), QString("typed"));
    }
    void ShowsTheBoxOfTheNormaliser() {
        CalculatorProgram program;
        program.Open();
        program.Calc("(1+1)(2+2)");
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().caption == u"Test");
        QVERIFY(program.LastBox().text == u"(1+1)*(2+2)");
        QCOMPARE(program.Edit()->text(), QString("8"));
    }
    void WalksThroughTheLinesBefore() {
        CalculatorProgram program;
        program.Open();
        for (const char* const line : {"1+1", "2+2", "2+2", "3+"})
            program.Calc(line);
        program.Calc("4+4");
        program.Type("half");
        const std::pair<Qt::Key, const char*> steps[] = {
            {Qt::Key_Down, "half"}, {Qt::Key_Up, "4+4"},   {Qt::Key_Up, "3+"},
            {Qt::Key_Up, "2+2"},    {Qt::Key_Up, "1+1"},   {Qt::Key_Up, "1+1"},
            {Qt::Key_Down, "2+2"},  {Qt::Key_Down, "3+"},  {Qt::Key_Down, "4+4"},
            {Qt::Key_Down, "half"}, {Qt::Key_Down, "half"}};
        for (const auto& [key, text] : steps) {
            program.Press(key);
            QCOMPARE(program.Edit()->text(), QString(text));
        }
        program.Press(Qt::Key_Up);
        program.Press(Qt::Key_Return);
        QCOMPARE(program.Edit()->text(), QString("8"));
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        program.Open();  // the lines are still there
        program.Press(Qt::Key_Up);
        QCOMPARE(program.Edit()->text(), QString("4+4"));
        program.Press(Qt::Key_Down);
        QCOMPARE(program.Edit()->text(), QString("Enter expression here"));
    }
    void ClosesBackToTheGraph() {
        for (const bool byKey : {true, false}) {
            CalculatorProgram program;
            program.OpenGraphFirst();
            program.Graph().Run(CommandId::Trace);
            const int count = program.Canvas().RedrawCount();
            program.Open();
            program.Calc("1");
            if (byKey) program.Press(Qt::Key_Escape);
            if (!byKey) program.Click(*program.dialog, "cancelKey");
            QTRY_VERIFY(!program.dialog);
            QTRY_VERIFY(program.Graph().isActiveWindow());
            QVERIFY(program.application.graph.mode == GraphMode::Trace);  // as before
            QCOMPARE(program.Canvas().RedrawCount(), count);
            const int index = program.application.graph.trace.index;
            QTest::keyClick(&program.Graph(), Qt::Key_Right);
            QCOMPARE(program.application.graph.trace.index, index + 1);
        }
    }
    void ShortCuts() {
        CalculatorProgram program;
        program.Start();
        QTest::keyClick(program.Line(1), Qt::Key_F9);
        program.Find(program.Editor());
        program.Calc("6*7");
        QTest::keyClick(program.Edit(), Qt::Key_F9);
        QCOMPARE(program.Editor().findChildren<QDialog*>().size(), 1);
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QTRY_VERIFY(program.Editor().isActiveWindow());
        QCOMPARE(program.Editor().FocusedSlot().value_or(-1), 0);
        program.Entry(1).selected = 1;
        program.OpenGraph();
        QTest::keyClick(&program.Graph(), Qt::Key_F9);
        program.Find(program.Graph());
        program.Press(Qt::Key_Up);  // the same lines in both windows
        QCOMPARE(program.Edit()->text(), QString("6*7"));
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        program.Graph().OpenMenu();
        QMenu* const menu = OpenedMenu(program.Graph(), "graphMenu");
        QTest::keyClick(menu, Qt::Key_F9);
        QVERIFY(program.Graph().findChild<QDialog*>() == nullptr);
        menu->close();
    }
    void EndlessTextsDoNotHang() {
        CalculatorProgram program;
        program.Open();
        program.Edit()->setText(QString("1") + QString("+1").repeated(20000));
        program.Press(Qt::Key_Return);
        QVERIFY(program.LastBox().text == u"Error Check the placement of commas");
        program.Edit()->setText(QString("(").repeated(40000));
        program.Press(Qt::Key_Return);
        QVERIFY(program.LastBox().text == u"Error Various number of opening and closing brackets");
    }
    void NoReasonIsCut() {
        CalculatorProgram program;
        program.Open();
        auto* const detail = program.dialog->findChild<QLabel*>("detail");
        for (const char* const typed : {"Cheb(3,1,0)", "J(0.5,-1)", "K(-1,1)", "Leg(0,0)", "1/3"}) {
            program.Calc(typed);
            QVERIFY(!detail->text().isEmpty());
            QTRY_VERIFY(detail->height() >= detail->heightForWidth(detail->width()));
            QVERIFY(program.dialog->height() <= 300);
        }
    }
};

QTEST_MAIN(CalculatorDialogTest)
#include "calculator_dialog_test.moc"
