// Names and descriptions for screen readers, and what the keyboard reaches.
#include <QAbstractButton>
#include <QAccessible>
#include <QCoreApplication>
#include <QDialog>

#include "window_fixture.h"

using namespace kalvex;

namespace {

/// Counts the changes of the graph's description, which it looks at between all events.
class SpokenWords final : public QObject {
  public:
    explicit SpokenWords(const QWidget& spoken)
        : graph(spoken), words{graph.accessibleDescription()} {
        QCoreApplication::instance()->installEventFilter(this);
    }
    /// How often it has changed since the last call.
    qsizetype Changes() {
        Note();
        const qsizetype changes = words.size() - 1;
        words = {words.back()};
        return changes;
    }
    bool eventFilter(QObject*, QEvent*) override {
        Note();
        return false;
    }

  private:
    void Note() {
        if (words.back() != graph.accessibleDescription()) words += graph.accessibleDescription();
    }
    const QWidget& graph;
    QStringList words;
};

struct SpokenProgram : TestProgram {
    SpokenProgram() {
        Start();
        ClearLines();
        Entry(1).selected = 1;
        Line(1)->setText("x^2");
        OpenGraph();
        QTest::qWait(30);
    }
};

/// The controls of a window that keyboard or pointer reach but that have no name for a screen
/// reader.
QStringList Nameless(const QWidget& window) {
    QStringList found;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const bool reached = widget->isVisible() && widget->focusPolicy() != Qt::NoFocus;
        const bool button =
            widget->isVisible() && qobject_cast<QAbstractButton*>(widget) != nullptr;
        // Parts of these controls of Qt are named through the control.
        const bool inner = widget->objectName().startsWith("qt_");
        if ((!reached && !button) || inner || widget->focusProxy() != nullptr) continue;
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
        if (spoken == nullptr || spoken->text(QAccessible::Name).isEmpty())
            found += QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
    }
    return found;
}

}  // namespace

class AccessibilityTest final : public QObject {
    Q_OBJECT
  private slots:
    void TheGraphSpeaksOncePerRedraw() {
        SpokenProgram program;
        SpokenWords spoken(program.Canvas());
        const int drawn = program.Canvas().RedrawCount();
        QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, QPoint(100, 100));
        for (int step = 1; step <= 20; ++step)
            QTest::mouseMove(&program.Canvas(), QPoint(100 + step, 100));
        QTest::mouseRelease(&program.Canvas(), Qt::LeftButton, {}, QPoint(120, 100));
        QTRY_VERIFY(program.Canvas().RedrawCount() > drawn);
        QTest::qWait(50);
        const qsizetype changes = spoken.Changes();
        QVERIFY(changes >= 1);
        QVERIFY(changes <= program.Canvas().RedrawCount() - drawn);
        QVERIFY(program.Canvas().accessibleDescription().startsWith("Y(x)=x^2. x "));
        program.Canvas().ScheduleRedraw();  // nothing new to say
        QTest::qWait(50);
        QCOMPARE(spoken.Changes(), 0);
    }
    void EveryControlOfTheEditorsDialogsIsNamed() {
        TestProgram program;
        program.Start();
        QCOMPARE(Nameless(program.Editor()), QStringList());
        const struct {
            CommandId command;
            const char* dialog;
        } rows[] = {
            {CommandId::Options, "optionsDialog"}, {CommandId::Calculator, "calculatorDialog"},
            {CommandId::Help, "helpWindow"},       {CommandId::About, "aboutBox"},
            {CommandId::LeastSquares, nullptr},    {CommandId::BetaSplines, nullptr},
            {CommandId::CubicSpline, nullptr}};
        program.Entry(1).type = EquationType::File;
        for (const auto& row : rows) {
            program.Editor().Run(row.command);
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            if (row.dialog != nullptr) QCOMPARE(dialog->objectName(), QString(row.dialog));
            QVERIFY(!dialog->windowTitle().isEmpty());
            QCOMPARE(Nameless(*dialog), QStringList());
            dialog->reject();
            QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
        }
    }
    void EveryControlOfTheGraphsDialogsIsNamed() {
        SpokenProgram program;
        QCOMPARE(Nameless(program.Graph()), QStringList());
        for (const CommandId command : {CommandId::ViewWindowDialog, CommandId::ZoomFactor,
                                        CommandId::Print, CommandId::Trace, CommandId::Analyze}) {
            program.Graph().Run(command);
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (command == CommandId::Trace) continue;  // opens no dialog
            QVERIFY(dialog != nullptr);
            QCOMPARE(Nameless(*dialog), QStringList());
            dialog->reject();
            QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
        }
    }
    void TheTraceIsSpoken() {
        SpokenProgram program;
        QTest::keyClick(&program.Graph(), Qt::Key_T);
        SpokenWords spoken(program.Canvas());
        QTest::keyClick(&program.Graph(), Qt::Key_Right);
        QCOMPARE(spoken.Changes(), 1);
        QVERIFY(program.Canvas().accessibleDescription().contains("dy/dx="));
    }
};

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"
