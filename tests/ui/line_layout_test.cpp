#include "ui/line_layout.h"

#include <QTest>

#include "ui/touch.h"

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
    void NoSizeAtAll() {
        QCOMPARE(LayOutLines(0, 0)[0].edit.width(), 0);
        QVERIFY(LayOutLines(-5, -5)[8].label.width() <= 0);
    }
};

QTEST_APPLESS_MAIN(LineLayoutTest)
#include "line_layout_test.moc"
