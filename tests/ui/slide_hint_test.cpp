#include "ui/editor/slide_hint.h"

#include <QMouseEvent>

#include "editor_fixture.h"

using namespace kalvex;

namespace {

/// The pen over the labels. It was pressed on the first label, which gets all its moves.
struct Stylus {
    EditorBench& bench;
    int first;

    void Down() const { QTest::mousePress(bench.Label(first), Qt::LeftButton); }
    void Up() const { QTest::mouseRelease(bench.Label(first), Qt::LeftButton); }
    void MoveOver(int number) const {
        const QPointF at = bench.Label(number)->mapToGlobal(QPointF(10, 10));
        QMouseEvent event(QEvent::MouseMove, bench.Label(first)->mapFromGlobal(at), at,
                          Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(bench.Label(first), &event);
    }
};

}  // namespace

class SlideHintTest final : public QObject {
    Q_OBJECT
  private slots:
    void SlidingPicksTheLineUnderThePen() {
        EditorBench bench;
        QVERIFY(bench.Start());
        auto* const hint = bench.window.findChild<QLabel*>("slideHint");
        const Stylus pen{bench, 2};
        pen.Down();
        QVERIFY(bench.Line(2)->hasFocus());
        QVERIFY(!hint->isVisible());
        for (const int number : {3, 5, 4, 9, 1}) {
            pen.MoveOver(number);
            QVERIFY(bench.Line(number)->hasFocus());
            QVERIFY(hint->isVisible());
        }
        QCOMPARE(hint->text(), QString("<< Slide to select function >>"));
        QVERIFY(bench.window.rect().contains(hint->geometry()));
        QVERIFY(hint->sizeHint().width() <= hint->width());
        for (int number = 1; number <= kSlotCount; ++number)
            QVERIFY(!hint->geometry().intersects(bench.PlaceOf(bench.Line(number))));
        pen.Up();
        QVERIFY(!hint->isVisible());
        QVERIFY(bench.Line(1)->hasFocus());
        for (int number = 1; number <= kSlotCount; ++number)
            QCOMPARE(int{bench.Entry(number).selected}, 0);
    }
    void AHoldOnALabelShowsTheHintAndSelectsNothing() {
        EditorBench bench;
        QVERIFY(bench.Start());
        auto* const hint = bench.window.findChild<QLabel*>("slideHint");
        const Stylus pen{bench, 4};
        pen.Down();
        QTRY_VERIFY(hint->isVisible());
        QTest::qWait(kHoldMilliseconds + 100);
        QCOMPARE(int{bench.Entry(4).selected}, 0);
        pen.Up();
        QVERIFY(!hint->isVisible());
    }
    void ATapFlashesNothing() {
        EditorBench bench;
        QVERIFY(bench.Start());
        auto* const hint = bench.window.findChild<QLabel*>("slideHint");
        QTest::mouseClick(bench.Label(4), Qt::LeftButton);
        QTest::qWait(400);
        QVERIFY(!hint->isVisible());
        QVERIFY(bench.Line(4)->hasFocus());
    }
    void SlidingInAScrolledWindow() {
        EditorBench bench(QSize(480, 240));
        QVERIFY(bench.Start());
        bench.window.FocusLine(8);
        const Stylus pen{bench, 9};
        pen.Down();
        pen.MoveOver(7);
        QVERIFY(bench.Line(7)->hasFocus());
        pen.MoveOver(2);  // that line is scrolled away, so the first visible one is the nearest
        QVERIFY(bench.Line(6)->hasFocus());
        pen.Up();
    }
    void AHiddenWindowEndsTheGesture() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const Stylus pen{bench, 2};
        pen.Down();
        pen.MoveOver(3);
        bench.window.hide();
        bench.window.show();
        QVERIFY(!bench.window.findChild<QLabel*>("slideHint")->isVisible());
    }
};

QTEST_MAIN(SlideHintTest)
#include "slide_hint_test.moc"
