#include "ui/editor/line_layout.h"

#include <QTest>
#include <tuple>

#include "ui/parts/touch.h"

using namespace kalvex;

class LineLayoutTest final : public QObject {
    Q_OBJECT
  private slots:
    void RowsOfANinth() {
        const auto places = LayOutLines(480, 588);  // rows of 65
        for (int i = 0; i < kSlotCount; ++i) {
            QCOMPARE(places[static_cast<std::size_t>(i)].label.top(), 64 * i + 3);
            QCOMPARE(places[static_cast<std::size_t>(i)].label.left(), 5);
        }
        QCOMPARE(places[0].label.width(), 480 * 2 / 9 - 5);
    }
    void NothingRunsOutOrOverlaps() {
        const QSize sizes[] = {{240, 387}, {480, 588}, {1280, 748}, {3840, 2108}, {320, 400}};
        for (const QSize size : sizes) {
            const auto places = LayOutLines(size.width(), size.height());
            int below = 0;
            for (const LinePlace& place : places) {
                QVERIFY(place.label.right() < place.edit.left());
                QVERIFY(place.edit.right() < size.width());
                QVERIFY(place.edit.height() >= kTouchTarget);
                QVERIFY(place.edit.top() >= below);
                below = place.edit.bottom() + 1;
                if (!place.hint.isEmpty()) {
                    QVERIFY(place.hint.top() >= below);
                    below = place.hint.bottom() + 1;
                }
            }
            QVERIFY2(below <= size.height(), qPrintable(QString::number(below)));
        }
    }
    void LargeWindowsDoNotStretch() {
        const auto places = LayOutLines(3840, 2108);
        QVERIFY(places[8].edit.bottom() < 700);
        QVERIFY(places[0].label.width() < 200);
    }
    void RowsInARoom() {
        const std::tuple<int, int, int> rows[] = {
            // height, height of a row, whole rows in it
            {588, 65, 9}, {387, 43, 9}, {386, 43, 8}, {348, 43, 8}, {129, 43, 3},
            {86, 43, 2},  {10, 43, 1},  {0, 43, 1},   {-9, 43, 1},  {2000, 68, 9},
        };
        for (const auto& [height, row, fitting] : rows) {
            QCOMPARE(RowHeight(height), row);
            QCOMPARE(FittingLines(height, row), fitting);
        }
        QCOMPARE(LeastLineAreaHeight(), 129);
        for (int count = 1; count <= kSlotCount; ++count) {
            const auto place = LayOutLines(480, 300)[static_cast<std::size_t>(count - 1)];
            QVERIFY(place.edit.bottom() < HeightOfLines(count, RowHeight(300)));
        }
    }
    void AboveAPanel() {
        const QSize window(480, 640);
        const std::pair<QRect, int> rows[] = {
            {QRect(), 640},
            {QRect(0, 400, 480, 240), 400},
            {QRect(-100, 400, 900, 900), 400},  // larger than the window
            {QRect(0, 640, 480, 240), 640},     // below it
            {QRect(600, 100, 480, 240), 640},   // beside it
            {QRect(0, 97, 480, 543), 97},
            {QRect(0, 96, 480, 543), 640},  // leaves too little
            {QRect(0, -500, 480, 1200), 640},
        };
        for (const auto& [panel, height] : rows)
            QCOMPARE(HeightAbovePanel(window, panel, 97), height);
    }
    void NoSizeAtAll() {
        QCOMPARE(LayOutLines(0, 0)[0].edit.width(), 0);
        QVERIFY(LayOutLines(-5, -5)[8].label.width() <= 0);
    }
};

QTEST_APPLESS_MAIN(LineLayoutTest)
#include "line_layout_test.moc"
