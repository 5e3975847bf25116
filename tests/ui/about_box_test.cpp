#include "ui/help/about_box.h"

#include <QDialog>
#include <QLabel>
#include <QScreen>

#include "ui/program_icon.h"
#include "window_fixture.h"

using namespace kalvex;

class AboutBoxTest final : public QObject {
    Q_OBJECT
  private slots:
    void SaysWhatItIs() {
        TestProgram program;
        program.Start();
        QVERIFY(program.Editor().Run(CommandId::About));
        QPointer<QDialog> box = program.Editor().findChild<QDialog*>("aboutBox");
        QVERIFY(box && QTest::qWaitForWindowActive(box.data()));
        QCOMPARE(box->windowTitle(), QString("Kalvex"));
        QVERIFY(box->isModal());
        QStringList texts;
        for (const QLabel* const label : box->findChildren<QLabel*>()) {
            QVERIFY(label->pixmap().isNull() || label->objectName() == "picture");
            QVERIFY(label->width() >= label->minimumSizeHint().width());
            texts += label->text();
        }
        QVERIFY(texts.contains("Kalvex"));
        QVERIFY(texts.contains("version 3.01 (Build 1801)"));
        QVERIFY(texts.join(' ').contains("Questions and suggestions"));
        QVERIFY(!texts.join(' ').contains('@') && !texts.join(' ').contains("//"));
        QVERIFY(!box->findChild<QLabel*>("picture")->pixmap().isNull());
        auto* const key = box->findChild<QPushButton*>("okKey");
        QCOMPARE(key->text(), QString("OK"));
        QTest::mouseClick(key, Qt::LeftButton);
        QTRY_VERIFY(!box);
    }
    void KeysCloseIt() {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            QWidget below;
            below.resize(480, 640);
            below.show();
            OpenAboutBox(&below);
            QPointer<QDialog> box = below.findChild<QDialog*>("aboutBox");
            QVERIFY(QTest::qWaitForWindowActive(box.data()));
            QVERIFY(box->width() <= 480 && box->height() <= 640);
            QTest::keyClick(QApplication::focusWidget(), key);
            QTRY_VERIFY(!box);
        }
    }
    void NothingIsCutByLargeLetters() {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSizeF(24);
        QApplication::setFont(large);
        QWidget below;
        below.show();
        OpenAboutBox(&below);
        auto* const box = below.findChild<QDialog*>("aboutBox");
        QVERIFY(QTest::qWaitForWindowActive(box));
        QVERIFY(box->height() > box->screen()->size().height() * 2 / 3);
        for (const QLabel* const label : box->findChildren<QLabel*>()) {
            const int needed = label->text().isEmpty() ? 96 : label->heightForWidth(label->width());
            QVERIFY2(label->height() >= needed, qPrintable(label->text()));
        }
        QApplication::setFont(before);
    }
    void TheIconHasEverySize() {
        const QIcon icon = ProgramIcon();
        for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
            QVERIFY(icon.availableSizes().contains(QSize(size, size)));
            const QImage picture = icon.pixmap(QSize(size, size), 1.0).toImage();
            QCOMPARE(picture.size(), QSize(size, size));
            QCOMPARE(picture.pixelColor(0, 0).alpha() < 128, true);         // round corners
            QCOMPARE(picture.pixelColor(size / 4, size / 4).alpha(), 255);  // opaque
        }
    }
};

QTEST_MAIN(AboutBoxTest)
#include "about_box_test.moc"
