#include "ui/parts/contrast.h"

#include <QTest>
#include <cmath>

#include "ui/parts/qt_text.h"

using namespace kalvex;

class ContrastTest final : public QObject {
    Q_OBJECT
  private slots:
    void KnownRatios() {
        QCOMPARE(ContrastRatio(Qt::black, Qt::white), 21.0);
        QCOMPARE(ContrastRatio(Qt::white, Qt::black), 21.0);
        QCOMPARE(ContrastRatio(QColor(9, 99, 199), QColor(9, 99, 199)), 1.0);
        // #777777 on white is the example of the accessibility guidelines for just below 4.5.
        QVERIFY(std::abs(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
    }
    void EveryTableColourBecomesReadable() {
        for (const QColor ground : {QColor(Qt::black), QColor(Qt::white), QColor(0xef, 0xef, 0xef),
                                    QColor(0x32, 0x32, 0x32), QColor(0x80, 0x80, 0x80)}) {
            for (const NamedColor& named : kColorTable) {
                const QColor readable = ReadableColor(ToQColor(named.rgb), ground, 4.5);
                QVERIFY2(ContrastRatio(readable, ground) >= 4.5, qPrintable(readable.name()));
            }
        }
    }
    void AReadableColourStays() {
        QCOMPARE(ReadableColor(Qt::blue, Qt::white, 4.5), QColor(0, 0, 255));
        QVERIFY(ReadableColor(Qt::cyan, Qt::white, 4.5) != QColor(0, 255, 255));
    }
};

QTEST_APPLESS_MAIN(ContrastTest)
#include "contrast_test.moc"
