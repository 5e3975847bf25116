#include "ui/editor/line_area.h"

#include <QInputMethod>
#include <QWheelEvent>

#include "editor_fixture.h"
#include "ui/parts/touch.h"

using namespace kalvex;

namespace {

/// The numbers of the lines that are wholly visible.
std::vector<int> Seen(EditorBench& bench) {
    std::vector<int> numbers;
    const auto* const area = bench.Line(1)->parentWidget();
    for (int number = 1; number <= kSlotCount; ++number) {
        if (area->rect().contains(bench.Line(number)->geometry())) numbers.push_back(number);
    }
    return numbers;
}

std::vector<int> Range(int first, int last) {
    std::vector<int> numbers;
    for (int number = first; number <= last; ++number)
        numbers.push_back(number);
    return numbers;
}

void ShowPanel(EditorBench& bench, const QRect& panel) {
    bench.panel = panel;
    emit QGuiApplication::inputMethod()->keyboardRectangleChanged();
}

}  // namespace

class LineAreaTest final : public QObject {
    Q_OBJECT
  private slots:
    void RoomForAllNine() {
        for (const QSize size : {QSize(480, 640), QSize(1280, 800), QSize(320, 480)}) {
            EditorBench bench(size);
            QVERIFY(bench.Start());
            QCOMPARE(Seen(bench), Range(1, 9));
            QVERIFY(!bench.Scroll()->isVisible());
            QCOMPARE(bench.Scroll()->maximum(), 0);
            // Without an input panel line i is at (row height - 1) * i + 3.
            const int row = (size.height() - kBottomBarHeight) / 9;
            if (row > 68) continue;
            for (int i = 0; i < kSlotCount; ++i)
                QCOMPARE(bench.PlaceOf(bench.Label(i + 1)).top(), (row - 1) * i + 3);
        }
    }
    void ASmallWindowScrollsByWholeRows() {
        EditorBench bench(QSize(640, 400));
        QVERIFY(bench.Start());
        QScrollBar& scroll = *bench.Scroll();
        QVERIFY(scroll.isVisible());
        QCOMPARE(Seen(bench), Range(1, 8));
        QCOMPARE(scroll.pageStep(), 8);
        QCOMPARE(scroll.maximum(), 1);
        QVERIFY(scroll.width() >= kTouchTarget);
        for (const char* const key : {"menuKey", "insertKey", "actionKey"})
            QVERIFY(bench.window.rect().contains(bench.PlaceOf(bench.Key(key))));
        const QRect first = bench.PlaceOf(bench.Line(1));
        QVERIFY(first.height() >= kTouchTarget);
        QVERIFY(first.right() < bench.PlaceOf(&scroll).left());
        scroll.triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(Seen(bench), Range(2, 9));
        QCOMPARE(bench.PlaceOf(bench.Line(2)), first);
        for (QWidget* const away :
             {static_cast<QWidget*>(bench.Line(1)), static_cast<QWidget*>(bench.Label(1))}) {
            QVERIFY(bench.PlaceOf(away).bottom() < 0);
        }
    }
    void TheFocusedLineIsAlwaysSeen() {
        EditorBench bench(QSize(480, 240));  // four rows
        QVERIFY(bench.Start());
        QCOMPARE(Seen(bench), Range(1, 4));
        for (int number = 1; number < 9; ++number) {
            QTest::keyClick(bench.Line(number), number % 2 == 0 ? Qt::Key_Down : Qt::Key_Tab);
            QVERIFY(bench.Line(number + 1)->hasFocus());
            QCOMPARE(Seen(bench).back(), std::max(4, number + 1));
        }
        QTest::keyClick(bench.Line(9), Qt::Key_Up);
        QCOMPARE(Seen(bench), Range(6, 9));
        bench.Scroll()->setValue(0);
        QCOMPARE(Seen(bench), Range(1, 4));
        QTest::keyClicks(bench.Line(8), "2");
        QCOMPARE(Seen(bench), Range(5, 8));
        QCOMPARE(bench.Line(8)->text(), QString("2"));
    }
    void ResizingKeepsTheFocusedLine() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.window.FocusLine(8);
        bench.window.resize(480, 240);
        QCOMPARE(Seen(bench), Range(6, 9));
        bench.window.resize(480, 640);
        QCOMPARE(Seen(bench), Range(1, 9));
        QCOMPARE(bench.Scroll()->maximum(), 0);
        QCOMPARE(bench.Scroll()->value(), 0);
        QVERIFY(!bench.Scroll()->isVisible());
    }
    void TheLinesStandAboveAnInputPanel() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.window.FocusLine(8);
        const QRect before = bench.PlaceOf(bench.Line(1));
        const int row = bench.PlaceOf(bench.Line(2)).top() - before.top() + 1;
        ShowPanel(bench, QRect(0, 400, 480, 240));
        const int fitting = (400 - kBottomBarHeight) / row;  // whole rows of the same height
        QCOMPARE(fitting, 5);
        QCOMPARE(Seen(bench), Range(5, 9));
        QCOMPARE(bench.Scroll()->pageStep(), fitting);
        QCOMPARE(bench.Scroll()->maximum(), 9 - fitting);
        QCOMPARE(bench.PlaceOf(bench.Line(9)).height(), before.height());
        for (const char* const key : {"menuKey", "insertKey", "actionKey"})
            QVERIFY(bench.PlaceOf(bench.Key(key)).bottom() < 400);
        QTest::keyClicks(bench.Line(9), "C");
        QVERIFY(bench.List()->isVisible());
        QVERIFY(bench.PlaceOf(bench.List()).bottom() < 400);
        ShowPanel(bench, QRect());
        QCOMPARE(Seen(bench), Range(1, 9));
        QCOMPARE(bench.PlaceOf(bench.Line(1)), before);
        QCOMPARE(bench.Scroll()->maximum(), 0);
        QVERIFY(!bench.Scroll()->isVisible());
        QVERIFY(!bench.List()->isVisible());
    }
    void APanelThatLeavesOneLine() {
        EditorBench bench(QSize(480, 300));
        QVERIFY(bench.Start());
        ShowPanel(bench, QRect(0, 100, 480, 200));
        QCOMPARE(Seen(bench), Range(1, 1));
        QTest::keyClicks(bench.Line(1), "C");
        QVERIFY(bench.PlaceOf(bench.List()).bottom() < 100);
        QVERIFY(bench.PlaceOf(bench.List()).height() >= kTouchTarget);
        QTest::keyClick(bench.Line(1), Qt::Key_Down);
        QVERIFY(bench.Line(1)->hasFocus());
        ShowPanel(bench, QRect(0, 20, 480, 280));  // leaves too little and is ignored
        QCOMPARE(Seen(bench).size(), std::size_t{5});
    }
    void Wheel() {
        EditorBench bench(QSize(480, 240));
        QVERIFY(bench.Start());
        QWidget* const area = bench.Line(1)->parentWidget();
        const auto turn = [area](int units) {
            const QPointF at(100, 60);
            QWheelEvent event(at, area->mapToGlobal(at), {}, QPoint(0, units), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(area, &event);
        };
        turn(-120);
        QVERIFY(bench.Scroll()->value() > 0);
        turn(1200);
        QCOMPARE(bench.Scroll()->value(), 0);
        QCOMPARE(Seen(bench), Range(1, 4));
    }
    void TheSmallestWindow() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.window.resize(1, 1);
        QCOMPARE(bench.window.size(), bench.window.minimumSize());
        QVERIFY(bench.window.height() <= 200);
        QCOMPARE(Seen(bench), Range(1, 3));
        for (const char* const key : {"menuKey", "insertKey", "actionKey"})
            QVERIFY(bench.window.rect().contains(bench.PlaceOf(bench.Key(key))));
    }
    void SlotAt() {
        EditorBench bench(QSize(480, 240));
        QVERIFY(bench.Start());
        const auto& area = static_cast<const LineArea&>(*bench.Line(1)->parentWidget());
        QCOMPARE(area.SlotAt(-50), 0);
        QCOMPARE(area.SlotAt(20), 0);
        QCOMPARE(area.SlotAt(60), 1);
        QCOMPARE(area.SlotAt(900), 3);
        bench.Scroll()->setValue(5);
        QCOMPARE(area.SlotAt(-50), 5);
        QCOMPARE(area.SlotAt(60), 6);
        QCOMPARE(area.SlotAt(900), 8);
    }
};

QTEST_MAIN(LineAreaTest)
#include "line_area_test.moc"
