#include <QComboBox>
#include <QDialog>
#include <QLineEdit>

#include "resources/methods.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

/// A program whose second line is a File line with the focus.
struct MethodProgram : TestProgram {
    QPointer<QDialog> dialog;

    void Open(CommandId command, const char* name) {
        if (!application.editor) {
            Start();
            ClearLines();
            Entry(2).type = EquationType::File;
            Editor().ShowLines();
        }
        Editor().FocusLine(1);
        Editor().OpenMenu();
        QMenu* const menu = OpenedMenu(Editor(), "mainMenu");
        QAction* const action = ActionOf(*menu, command);
        QVERIFY(action != nullptr && action->isEnabled());
        action->trigger();
        menu->close();
        dialog = Editor().findChild<QDialog*>(name);
        QVERIFY(dialog != nullptr);
        QTRY_VERIFY(QApplication::activeWindow() == dialog.data());
    }
    QLineEdit* Field(const char* name) { return dialog->findChild<QLineEdit*>(name); }
    QComboBox* List(const char* name) { return dialog->findChild<QComboBox*>(name); }
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Whether some label of the dialog shows a text.
    bool Shows(const QString& text) {
        for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
            if (label->text() == text) return true;
        }
        return false;
    }
};

}  // namespace

class MethodDialogsTest final : public QObject {
    Q_OBJECT
  private slots:
    void Terms() {
        MethodProgram program;
        program.Open(CommandId::LeastSquares, "termsDialog");
        QVERIFY(program.Shows("Enter the number of terms to use in the approximating polynomial."));
        QCOMPARE(program.Field("terms")->text(), QString("1"));
        program.Type("4");
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Entry(2).method.approx, 0);
        QCOMPARE(program.Entry(2).method.approx_val, 4);
        QCOMPARE(program.Entry(1).method.approx_val, 1);  // each line keeps its own number
        program.Open(CommandId::LeastSquares, "termsDialog");
        QCOMPARE(program.Field("terms")->text(), QString("4"));
        program.Type("none");  // the dialog accepts any text
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Entry(2).method.approx_val, 0);
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.Editor().FocusedSlot().value_or(-1), 1);
    }
    void CancelKeepsTheMethodAndItsNumbers() {
        MethodProgram program;
        program.Open(CommandId::LeastSquares, "termsDialog");
        program.Type("4");
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Entry(2).method.approx_val, 1);
        program.Open(CommandId::BetaSplines, "betaDialog");
        program.Type("4");
        program.Click(*program.dialog, "cancelKey");
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Entry(2).method.approx, 3);
        QCOMPARE(program.Entry(2).method.beta1, 1.0);
    }
    void BiasAndTension() {
        MethodProgram program;
        program.Open(CommandId::BetaSplines, "betaDialog");
        QVERIFY(program.Shows(
            "If B1 = 1, B2 = 0, the cubic beta spline will be the same as the cubic B spline. With "
            "B1 = 1, B2 large, the beta spline becomes like a linear spline."));
        QVERIFY(program.Shows("B1=") && program.Shows("B2="));
        QCOMPARE(program.Field("beta1")->toolTip(),
                 QString("The bias parameter. B1 = 1 for no skew or bias."));
        QCOMPARE(program.Field("beta2")->toolTip(),
                 QString("The tension parameter. B2 = 0 for no tension."));
        program.Type("1.5");
        program.Press(Qt::Key_Tab);
        program.Type("much");
        program.Press(Qt::Key_Return);
        QVERIFY(program.LastBox().text == u"B2 is not a number.");
        QCOMPARE(program.Entry(2).method.beta1, 1.0);
        program.Type("20");
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Entry(2).method.beta1, 1.5);
        QCOMPARE(program.Entry(2).method.beta2, 20.0);
    }
    void Boundaries() {
        MethodProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(2).type = EquationType::File;
        program.Entry(2).method.approx_val = 17;  // no flag
        program.Entry(2).method.approx_val2 = 2;
        program.Editor().ShowLines();
        program.Open(CommandId::CubicSpline, "cubicDialog");
        QCOMPARE(program.List("leftFlag")->currentIndex(), 0);
        QCOMPARE(program.List("rightFlag")->currentIndex(), 2);
        QVERIFY(program.Shows("Left value (L):") && program.Shows("Right value (R):"));
        const char* const left[] = {
            "the cubic spline should be a quadratic over the first interval",
            "the first derivative at the left endpoint should be L",
            "the second derivative at the left endpoint should be L"};
        const char* const right[] = {
            "the cubic spline should be a quadratic over the last interval",
            "the first derivative at the right endpoint should be R",
            "the second derivative at the right endpoint should be R"};
        for (int flag = 0; flag < 3; ++flag) {
            program.List("leftFlag")->setCurrentIndex(flag);
            program.List("rightFlag")->setCurrentIndex(flag);
            QCOMPARE(program.List("leftFlag")->itemText(flag), QString::number(flag));
            QCOMPARE(program.List("leftFlag")->toolTip(), QString(left[flag]));
            QCOMPARE(program.List("rightFlag")->toolTip(), QString(right[flag]));
            QVERIFY(program.Shows(left[flag]) && program.Shows(right[flag]));
        }
        program.List("leftFlag")->setCurrentIndex(1);
        program.Field("leftValue")->setText("-0.5");
        program.Field("rightValue")->setText("1e999");
        program.Click(*program.dialog, "saveKey");
        QVERIFY(program.LastBox().text == u"Right value (R) is too large.");
        QCOMPARE(program.Entry(2).method.approx_val, 17);
        program.Field("rightValue")->setText("3");
        program.Click(*program.dialog, "saveKey");
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Entry(2).method.approx, 10);
        QCOMPARE(program.Entry(2).method.approx_val, 1);
        QCOMPARE(program.Entry(2).method.approx_val2, 2);
        QCOMPARE(program.Entry(2).method.beta1, -0.5);
        QCOMPARE(program.Entry(2).method.beta2, 3.0);
    }
    void OtherMethodsHaveNoDialog() {
        for (const MethodChoice& choice : kMethods) {
            MethodProgram program;
            program.Start();
            program.ClearLines();
            program.Entry(2).type = EquationType::File;
            program.Editor().FocusLine(1);
            program.Editor().Run(choice.command);
            const bool dialog = choice.method == ApproxMethod::LeastSquares ||
                                choice.method == ApproxMethod::BetaSplines ||
                                choice.method == ApproxMethod::CubicSpline;
            QCOMPARE(program.Editor().findChild<QDialog*>() != nullptr, dialog);
        }
    }
    void TheMenuMarksTheMethodOfTheLine() {
        MethodProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(2).type = program.Entry(3).type = EquationType::File;
        program.Entry(2).method.approx = 6;
        program.Entry(3).method.approx = 12;
        program.Editor().ShowLines();
        const std::pair<int, CommandId> rows[] = {{1, CommandId::Overhauser},
                                                  {2, CommandId::Largange}};
        for (const auto& [slot, command] : rows) {
            program.Editor().FocusLine(slot);
            program.Editor().OpenMenu();
            QMenu* const menu = OpenedMenu(program.Editor(), "mainMenu");
            for (const MethodChoice& choice : kMethods)
                QCOMPARE(ActionOf(*menu, choice.command)->isChecked(), choice.command == command);
            menu->close();
        }
        program.Editor().FocusLine(0);
        program.Editor().OpenMenu();
        QMenu* const menu = OpenedMenu(program.Editor(), "mainMenu");
        QVERIFY(ActionOf(*menu, CommandId::Largange) == nullptr);  // no File line
        menu->close();
    }
    void AreStoredAtDraw() {
        MethodProgram program;
        program.Open(CommandId::BetaSplines, "betaDialog");
        program.Type("2.5");
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        program.Editor().Run(CommandId::Draw);
        QVERIFY(program.store.registry.readText("2", "beta1").value_or(u"") == u"2.500000");
        QCOMPARE(program.store.registry.readNumber("2", "approx").value_or(-1), 3);
    }
};

QTEST_MAIN(MethodDialogsTest)
#include "method_dialogs_test.moc"
