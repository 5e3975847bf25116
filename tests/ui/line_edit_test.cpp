#include "ui/editor/line_edit.h"

#include <QClipboard>
#include <QStyleHints>

#include "editor_fixture.h"

using namespace kalvex;

namespace {

struct Stylus {
    LineEdit& line;

    void Down(QPoint at) const { QTest::mousePress(&line, Qt::LeftButton, {}, at); }
    void Up(QPoint at) const { QTest::mouseRelease(&line, Qt::LeftButton, {}, at); }
    /// A move with the button down, which QTest::mouseMove would send without it.
    void Move(QPoint at) const {
        QMouseEvent event(QEvent::MouseMove, at, line.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&line, &event);
    }
};

}  // namespace

class LineEditTest final : public QObject {
    Q_OBJECT
  private slots:
    void AHoldTogglesOnce() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const Stylus pen{*bench.Line(3)};
        pen.Down(QPoint(20, 20));
        QTest::qWait(kHoldMilliseconds - 200);
        QCOMPARE(int{bench.Entry(3).selected}, 0);
        QTRY_COMPARE(int{bench.Entry(3).selected}, 1);
        QTest::qWait(kHoldMilliseconds * 2);
        QCOMPARE(int{bench.Entry(3).selected}, 1);
        pen.Up(QPoint(20, 20));
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(3).selected}, 1);
        QVERIFY(bench.Line(3)->hasFocus());
        pen.Down(QPoint(20, 20));
        QTRY_COMPARE(int{bench.Entry(3).selected}, 0);
        pen.Up(QPoint(20, 20));
    }
    void AnEarlyReleaseDoesNothing() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const Stylus pen{*bench.Line(3)};
        pen.Down(QPoint(20, 20));
        QTest::qWait(100);
        pen.Up(QPoint(20, 20));
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(3).selected}, 0);
    }
    void ATremblingHandHolds() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.Line(1)->setText("12345678901234567890");
        const Stylus pen{*bench.Line(1)};
        pen.Down(QPoint(60, 20));
        pen.Move(QPoint(64, 22));
        QTRY_COMPARE(int{bench.Entry(1).selected}, 1);
        QVERIFY(!bench.Line(1)->hasSelectedText());
        pen.Up(QPoint(64, 22));
    }
    void ADragSelectsTextAndHoldsNot() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.Line(1)->setText("12345678901234567890");
        const Stylus pen{*bench.Line(1)};
        pen.Down(QPoint(20, 20));
        pen.Move(QPoint(20 + QGuiApplication::styleHints()->startDragDistance() + 60, 20));
        QVERIFY(bench.Line(1)->hasSelectedText());
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(1).selected}, 0);
        pen.Up(QPoint(90, 20));
    }
    void WhatTakesThePenAway() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const Stylus pen{*bench.Line(2)};
        pen.Down(QPoint(20, 20));
        bench.window.FocusLine(4);
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(2).selected}, 0);
        pen.Up(QPoint(20, 20));
        pen.Down(QPoint(20, 20));
        bench.window.hide();
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(2).selected}, 0);
    }
    void OtherButtonsDoNotHold() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::mousePress(bench.Line(2), Qt::MiddleButton, {}, QPoint(20, 20));
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(2).selected}, 0);
        QTest::mouseRelease(bench.Line(2), Qt::MiddleButton, {}, QPoint(20, 20));
    }
    void ADoubleTapTogglesOnceHoweverLongItsSecondTap() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const Stylus pen{*bench.Line(2)};
        pen.Down(QPoint(20, 20));
        pen.Up(QPoint(20, 20));
        QTest::mouseDClick(bench.Line(2), Qt::LeftButton, {}, QPoint(20, 20));
        QCOMPARE(int{bench.Entry(2).selected}, 1);
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(2).selected}, 1);
    }
    void PastingIsOneStepOfUndo() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "x+");
        QGuiApplication::clipboard()->setText(" 2 *\tx\n");
        QTest::keyClick(bench.Line(1), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClicks(bench.Line(1), "-1");
        QCOMPARE(bench.Line(1)->text(), QString("x+2*x-1"));
        bench.Line(1)->undo();
        QCOMPARE(bench.Line(1)->text(), QString("x+2*x"));
        bench.Line(1)->undo();
        QCOMPARE(bench.Line(1)->text(), QString("x+"));
        QGuiApplication::clipboard()->setText(" \t ");
        bench.Line(1)->selectAll();
        bench.Line(1)->PasteText();
        QCOMPARE(bench.Line(1)->text(), QString("x+"));
    }
    void PathsArePastedWhole() {
        EditorBench bench;
        bench.Entry(1).type = EquationType::File;
        bench.window.ShowLines();
        QVERIFY(bench.Start());
        QGuiApplication::clipboard()->setText("/my points.txt");
        QTest::keyClick(bench.Line(1), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(bench.Line(1)->text(), QString("/my points.txt"));
    }
    void AStoredBlankSurvivesARefusedOne() {
        EditorBench bench;
        bench.workspace.lines[0] = u"x + 5";
        bench.window.ShowLines();
        QVERIFY(bench.Start());
        bench.Line(1)->beep = [] {};
        QTest::keyClick(bench.Line(1), Qt::Key_Space);
        QCOMPARE(bench.Line(1)->text(), QString("x + 5"));
    }
};

QTEST_MAIN(LineEditTest)
#include "line_edit_test.moc"
