#include "ui/parts/focus_frame.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include "ui/parts/contrast.h"

using namespace kalvex;

class FocusFrameTest final : public QObject {
    Q_OBJECT
  private slots:
    void ShowsOnAnyGround() {
        const QColor grounds[] = {Qt::white, Qt::black, QColor(61, 61, 61), QColor(239, 239, 239)};
        const QColor highlights[] = {QColor(14, 77, 110), QColor(48, 140, 198), Qt::yellow,
                                     Qt::black, Qt::white};
        for (const QColor& ground : grounds) {
            for (const QColor& highlight : highlights) {
                QPalette palette;
                palette.setColor(QPalette::Base, ground);
                palette.setColor(QPalette::Highlight, highlight);
                QImage picture(60, 40, QImage::Format_RGB32);
                picture.fill(ground);
                QPainter painter(&picture);
                DrawFocusFrame(painter, picture.rect(), palette, QPalette::Base);
                painter.end();
                QVERIFY(ContrastRatio(picture.pixelColor(30, 0), ground) >= 2.9);
                QVERIFY(ContrastRatio(picture.pixelColor(30, 1), ground) >= 2.9);
                QCOMPARE(picture.pixelColor(30, 3), ground);  // two pixels wide
                QCOMPARE(picture.pixelColor(30, 20), ground);
            }
        }
    }
};

QTEST_MAIN(FocusFrameTest)
#include "focus_frame_test.moc"
