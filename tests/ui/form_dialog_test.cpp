// The frame of the small dialogs.
#include "ui/parts/form_dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <vector>

using namespace kalvex;

class FormDialogTest final : public QObject {
    Q_OBJECT
  private slots:
    void EnterPressesTheKeyThatHasTheFocus() {
        for (const bool onCancel : {false, true}) {
            FormDialog dialog("Keys", nullptr);
            QLineEdit* const field = dialog.AddText("Field:", "text");
            int saves = 0;
            dialog.save = [&saves] { return ++saves > 0; };
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            field->setFocus();
            QTest::keyClick(field, Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), dialog.SaveKey());
            if (onCancel) QTest::keyClick(dialog.SaveKey(), Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(saves, onCancel ? 0 : 1);
            QCOMPARE(dialog.result(), int{onCancel ? QDialog::Rejected : QDialog::Accepted});
        }
    }
    void EnterInAFieldSaves() {
        FormDialog dialog("Keys", nullptr, "Calc");
        QLineEdit* const field = dialog.AddText("Field:", "text");
        int saves = 0;
        dialog.save = [&saves] { return ++saves > 1; };
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.SaveKey()->text(), QString("Calc"));
        dialog.CancelKey()->setFocus();
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(saves, 1);
        QVERIFY(dialog.isVisible());  // refused
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    }
    // A system font of any size; the screen is as narrow as a handheld's.
    void NothingIsCut() {
        for (const int points : {8, 12, 16, 20}) {
            FormDialog dialog("Large", nullptr);
            QFont font = dialog.font();
            font.setPointSize(points);
            dialog.setFont(font);
            dialog.AddNote(
                "If B1 = 1, B2 = 0, the cubic beta spline will be the same as the cubic B "
                "spline. With B1 = 1, B2 large, the beta spline becomes a linear spline.");
            const QLineEdit* const field =
                dialog.AddText("Min value of a long caption:", "0.000000");
            dialog.AddChoice("Choice:", {"one", "a longer entry"}, 0);
            dialog.FitInto(QSize(476, 604));
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QVERIFY(dialog.width() <= 476 && dialog.height() <= 604);
            const QRect place(field->mapTo(&dialog, QPoint(0, 0)), field->size());
            QVERIFY2(dialog.rect().contains(place), qPrintable(QString::number(points)));
            for (const QLabel* const label : dialog.findChildren<QLabel*>())
                QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                         qPrintable(label->text()));
        }
    }
    void TheFieldsScrollWhereTheScreenIsLow() {
        FormDialog dialog("Low", nullptr);
        std::vector<QLineEdit*> fields;
        for (int i = 0; i < 8; ++i)
            fields.push_back(dialog.AddText("Field:", "text"));
        dialog.FitInto(QSize(400, 2000));
        QVERIFY(dialog.findChild<QScrollArea*>() == nullptr);
        fields[2]->setFocus();
        dialog.FitInto(QSize(400, 300));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(QApplication::focusWidget(), fields[2]);  // moved, not lost
        QCOMPARE(dialog.height(), 300);
        QVERIFY(dialog.rect().contains(
            QRect(dialog.SaveKey()->mapTo(&dialog, QPoint(0, 0)), dialog.SaveKey()->size())));
        fields[0]->setFocus();
        for (int i = 0; i < 7; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), fields[7]);
        QTRY_COMPARE(fields[7]->visibleRegion().boundingRect(), fields[7]->rect());
    }
};

QTEST_MAIN(FormDialogTest)
#include "form_dialog_test.moc"
