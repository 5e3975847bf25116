#include <QLineEdit>

#include "ui/parts/form_dialog.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

struct DialogProgram : TestProgram {
    void OpenWith(CommandId command) {
        Start();
        ClearLines();
        Entry(1).selected = 1;
        Editor().ShowLines();
        Line(1)->setText("x");
        OpenGraph();
        Graph().Run(command);
        dialog = Graph().findChild<QDialog*>(
            command == CommandId::ViewWindowDialog ? "viewWindowDialog" : "factorDialog");
        QVERIFY(dialog != nullptr);
        QTRY_COMPARE(QApplication::focusWidget(), Field(1));
    }
    QLineEdit* Field(int number) {
        return dialog->findChild<QLineEdit*>("field" + QString::number(number));
    }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    ViewWindow& View() { return application.graph.viewport.view; }
    QPointer<QDialog> dialog;
};

}  // namespace

class ViewDialogsTest final : public QObject {
    Q_OBJECT
  private slots:
    void ShowsEveryDigit() {
        DialogProgram program;
        program.application.graph.viewport.view = {};
        program.Start();
        program.View().Xmin = -1.0 / 3.0;
        program.View().Ymax = 1e300;
        program.View().Ymin = 0.1;
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Graph().Run(CommandId::ViewWindowDialog);
        program.dialog = program.Graph().findChild<QDialog*>("viewWindowDialog");
        QCOMPARE(program.Field(1)->text(), QString("-0.3333333333333333"));
        QCOMPARE(program.Field(2)->text(), QString("10"));
        QCOMPARE(program.Field(3)->text(), QString("0.1"));
        QCOMPARE(program.Field(4)->text(), QString("1e+300"));
        QCOMPARE(program.dialog->windowTitle(), QString("View Window"));
        program.Click(*program.dialog, "saveKey");
        QCOMPARE(program.View().Xmin, -1.0 / 3.0);
        QCOMPARE(program.View().Ymax, 1e300);
    }
    void BoundsByKeyboardAlone() {
        DialogProgram program;
        program.OpenWith(CommandId::ViewWindowDialog);
        const int count = program.Canvas().RedrawCount();
        for (const char* const text : {"-2", "3.5", "7", "-1e2"}) {
            program.Type(text);
            program.Press(Qt::Key_Tab);
        }
        program.Field(2)->setFocus();
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.View().Xmin, -2.0);
        QCOMPARE(program.View().Xmax, 3.5);
        QCOMPARE(program.View().Ymin, 7.0);  // reversed: a mirrored picture
        QCOMPARE(program.View().Ymax, -100.0);
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.application.graph.viewport.PreviousWindow.Xmin, -10.0);
    }
    void EscapeChangesNothing() {
        DialogProgram program;
        program.OpenWith(CommandId::ViewWindowDialog);
        const int count = program.Canvas().RedrawCount();
        program.Type("-2");
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QVERIFY(program.Graph().isVisible());
        QCOMPARE(program.View().Xmin, -10.0);
        QTest::qWait(20);
        QCOMPARE(program.Canvas().RedrawCount(), count);
    }
    void CancelChangesNothing() {
        DialogProgram program;
        program.OpenWith(CommandId::ZoomFactor);
        program.Type("9");
        program.Click(*program.dialog, "cancelKey");
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.View().Xfactor, 2.0);
    }
    void RefusesBoundsWithAReason() {
        const struct {
            int field;
            const char* text;
            std::u16string_view message;
        } rows[] = {
            {1, "abc", u"X minimum is not a number."},
            {2, "", u"X maximum is not a number."},
            {3, "1e999", u"Y minimum is too large."},
            {4, "-10", u"Y minimum and Y maximum must differ."},
        };
        DialogProgram program;
        program.OpenWith(CommandId::ViewWindowDialog);
        for (const auto& row : rows) {
            const QString before = program.Field(row.field)->text();
            program.Field(row.field)->setText(row.text);
            program.Field(row.field)->setFocus();
            program.Press(Qt::Key_Return);
            QVERIFY(program.dialog && program.dialog->isVisible());
            QVERIFY(program.LastBox().text == row.message);
            QVERIFY(program.LastBox().caption == u"Error!");
            QVERIFY(program.LastBox().icon == MessageIcon::Stop);
            QCOMPARE(QApplication::focusWidget(), program.Field(row.field));
            QCOMPARE(program.View().Xmin, -10.0);
            program.Field(row.field)->setText(before);
        }
    }
    void FactorsByKeyboardAlone() {
        DialogProgram program;
        program.OpenWith(CommandId::ZoomFactor);
        QCOMPARE(program.dialog->windowTitle(), QString("Factor"));
        program.Type("4");
        program.Press(Qt::Key_Tab);
        program.Type("0");
        program.Press(Qt::Key_Return);
        QVERIFY(program.LastBox().text == u"Y factor must be a number greater than 0.");
        QCOMPARE(program.View().Xfactor, 2.0);
        program.Type("1.5");  // the refused text is selected
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.View().Xfactor, 4.0);
        QCOMPARE(program.View().Yfactor, 1.5);
    }
    void EndAPick() {
        for (const CommandId command : {CommandId::ViewWindowDialog, CommandId::ZoomFactor}) {
            DialogProgram program;
            program.Start();
            program.Entry(1).selected = 1;
            program.OpenGraph();
            program.Graph().Run(CommandId::ZoomBox);
            QCOMPARE(program.Graph().windowTitle(), QString("Choose First point"));
            program.Graph().Run(command);
            QVERIFY(program.application.graph.mode == GraphMode::Normal);
            QCOMPARE(program.Graph().windowTitle(), QString("Kalvex"));
        }
    }
    void AreStoredWithTheView() {
        DialogProgram program;
        program.OpenWith(CommandId::ZoomFactor);
        program.Type("8");
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        program.Graph().Run(CommandId::GraphTable);
        QVERIFY(program.store.registry.readText("", "Xfactor").value_or(u"") == u"8.000000");
    }
};

QTEST_MAIN(ViewDialogsTest)
#include "view_dialogs_test.moc"
