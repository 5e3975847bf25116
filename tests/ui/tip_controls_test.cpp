// Captions and check boxes with tips: by mouse, by key and by finger.
#include "ui/parts/tip_controls.h"

#include <QtTest/qtesttouch.h>

#include <QLineEdit>
#include <QPointingDevice>
#include <QStyle>
#include <QStyleHints>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "ui/parts/tip_window.h"

using namespace kalvex;

namespace {

/// A caption with its field above a check box.
struct Bench {
    QWidget window;
    QLineEdit first{&window};
    TipCaption caption{u"Name & more:~~What it is called", &window};
    QLineEdit field{&window};
    TipCheckBox box{u"On & off~~Whether it is on", &window};
    std::unique_ptr<QPointingDevice> finger{QTest::createTouchDevice()};

    Bench() {
        auto* const column = new QVBoxLayout(&window);
        for (QWidget* const widget : QList<QWidget*>{&first, &caption, &field, &box})
            column->addWidget(widget);
        caption.SetField(&field);
        window.resize(300, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        first.setFocus();
    }
    QLabel* Tip() { return window.findChild<QLabel*>("tipWindow"); }
    bool Shows(const char* text) {
        return Tip() != nullptr && Tip()->isVisible() && Tip()->text() == text;
    }
    bool ShowsNothing() { return Tip() == nullptr || !Tip()->isVisible(); }
    static QRect OnScreen(const QWidget& widget) {
        return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
    }
    void Rest(QWidget& widget) {
        QTest::mouseMove(&widget, QPoint(5, 5));
        QTest::mouseMove(&widget, QPoint(8, 8));
    }
    static void WaitPastTheDelay() {
        QTest::qWait(QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay) + 250);
    }
    static void WaitPastAHold() {
        QTest::qWait(QGuiApplication::styleHints()->mousePressAndHoldInterval() + 150);
    }
};

constexpr char kNameTip[] = "What it is called";
constexpr char kOnTip[] = "Whether it is on";

}  // namespace

class TipControlsTest final : public QObject {
    Q_OBJECT
  private slots:
    void Place() {
        const QRect screen(0, 0, 480, 640);
        const QRect second(480, 100, 800, 600);
        const struct {
            QRect control;
            QSize tip;
            QRect screen;
            QRect place;
        } rows[] = {
            {{20, 100, 300, 40}, {200, 50}, screen, {20, 144, 200, 50}},
            {{400, 100, 60, 40}, {200, 50}, screen, {280, 144, 200, 50}},
            {{-30, 100, 60, 40}, {200, 50}, screen, {0, 144, 200, 50}},
            {{20, 546, 300, 40}, {200, 50}, screen, {20, 590, 200, 50}},  // fits to the pixel
            {{20, 547, 300, 40}, {200, 50}, screen, {20, 493, 200, 50}},
            {{20, 600, 300, 40}, {200, 50}, screen, {20, 546, 200, 50}},
            {{500, 650, 300, 40}, {200, 50}, second, {500, 596, 200, 50}},
            {{400, 200, 300, 40}, {200, 50}, second, {480, 244, 200, 50}},
            {{20, 20, 300, 600}, {200, 50}, screen, {20, 0, 200, 50}},  // no room below or above
            {{20, 100, 300, 40}, {900, 50}, screen, {0, 144, 900, 50}},
        };
        for (const auto& row : rows)
            QCOMPARE(TipPlace(row.control, row.tip, row.screen), row.place);
    }
    void TextsAndKinds() {
        Bench bench;
        QCOMPARE(bench.caption.text(), QString("Name & more:"));
        QCOMPARE(bench.caption.toolTip(), QString(kNameTip));
        QCOMPARE(bench.caption.property("controlClass").toString(), QString("TTSTATIC"));
        QCOMPARE(bench.caption.buddy(), &bench.field);
        QCOMPARE(bench.field.accessibleName(), QString("Name & more"));
        QCOMPARE(bench.field.accessibleDescription(), QString(kNameTip));
        QCOMPARE(bench.box.text(), QString("On && off"));
        QCOMPARE(bench.box.accessibleName(), QString("On & off"));
        QCOMPARE(bench.box.accessibleDescription(), QString(kOnTip));
        QCOMPARE(bench.box.property("controlClass").toString(), QString("TTBUTTON"));
    }
    void TheMouseRests() {
        Bench bench;
        for (QWidget* const widget : QList<QWidget*>{&bench.caption, &bench.field}) {
            bench.Rest(*widget);
            QTRY_VERIFY(bench.Shows(kNameTip));
            const QRect row = Bench::OnScreen(bench.caption).united(Bench::OnScreen(bench.field));
            QVERIFY(!bench.Tip()->geometry().intersects(row));
            QTest::mouseMove(&bench.first, QPoint(5, 5));
            QTRY_VERIFY(bench.ShowsNothing());
        }
        bench.Rest(bench.box);
        QTRY_VERIFY(bench.Shows(kOnTip));
        QVERIFY(!bench.Tip()->geometry().intersects(Bench::OnScreen(bench.box)));
        QTest::mouseClick(&bench.box, Qt::LeftButton, {}, QPoint(10, bench.box.height() / 2));
        QVERIFY(bench.ShowsNothing());
        QVERIFY(bench.box.isChecked());
    }
    void TheFocusComesByKey() {
        Bench bench;
        QTest::keyClick(&bench.first, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &bench.field);
        QVERIFY(bench.ShowsNothing());  // after the delay, not at once
        QTRY_VERIFY(bench.Shows(kNameTip));
        QTest::mouseMove(&bench.window, QPoint(2, 2));  // a move of the mouse does not hide it
        QVERIFY(bench.Shows(kNameTip));
        QTest::keyClick(&bench.field, Qt::Key_A);
        QVERIFY(bench.ShowsNothing());
        QCOMPARE(bench.field.text(), QString("a"));
        QTest::keyClick(&bench.field, Qt::Key_Tab);
        QTRY_VERIFY(bench.Shows(kOnTip));
        QTest::keyClick(&bench.box, Qt::Key_Backtab);
        QVERIFY(bench.ShowsNothing());
        QTRY_VERIFY(bench.Shows(kNameTip));
    }
    void RunningThroughShowsNone() {
        Bench bench;
        for (int i = 0; i < 30; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::qWait(20);
            QVERIFY(bench.ShowsNothing());
        }
        bench.first.setFocus(Qt::OtherFocusReason);
        bench.field.setFocus(Qt::OtherFocusReason);
        Bench::WaitPastTheDelay();
        QVERIFY(bench.ShowsNothing());
        QTest::keyClick(&bench.field, Qt::Key_Tab);
        QTest::keyClick(&bench.box, Qt::Key_Space);  // who uses it needs no tip
        Bench::WaitPastTheDelay();
        QVERIFY(bench.ShowsNothing());
        QVERIFY(bench.box.isChecked());
    }
    void AFingerHolds() {
        Bench bench;
        const QPoint at(10, bench.box.height() / 2);
        QTest::touchEvent(&bench.box, bench.finger.get()).press(0, at);
        QTRY_VERIFY(bench.Shows(kOnTip));
        QTest::touchEvent(&bench.box, bench.finger.get()).move(0, at + QPoint(2, 1));
        QTest::touchEvent(&bench.box, bench.finger.get()).release(0, at + QPoint(2, 1));
        QVERIFY(!bench.box.isChecked());  // a hold presses nothing
        QVERIFY(bench.Shows(kOnTip));     // after the finger is lifted the tip can be read
        QTest::touchEvent(&bench.box, bench.finger.get()).press(0, at);
        QVERIFY(bench.ShowsNothing());
        QTest::touchEvent(&bench.box, bench.finger.get()).release(0, at);
        QVERIFY(bench.box.isChecked());
        QTest::touchEvent(&bench.caption, bench.finger.get()).press(0, QPoint(5, 5));
        QTRY_VERIFY(bench.Shows(kNameTip));
        QTest::touchEvent(&bench.caption, bench.finger.get()).release(0, QPoint(5, 5));
    }
    /// A press soon after another one arrives as a double click.
    void AFingerTapsAndHolds() {
        Bench bench;
        const QPointF at(10, bench.box.height() / 2);
        const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
            QMouseEvent event(type, at, bench.box.mapToGlobal(at), Qt::LeftButton, buttons, {},
                              bench.finger.get());
            QCoreApplication::sendEvent(&bench.box, &event);
        };
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, {});
        QVERIFY(bench.box.isChecked());
        send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        QTRY_VERIFY(bench.Shows(kOnTip));
        send(QEvent::MouseButtonRelease, {});
        QVERIFY(bench.box.isChecked());  // the hold presses nothing
        send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        QVERIFY(bench.ShowsNothing());
        send(QEvent::MouseButtonRelease, {});
        QVERIFY(!bench.box.isChecked());
    }
    void AFingerThatMovesHoldsNothing() {
        Bench bench;
        const int far = QGuiApplication::styleHints()->startDragDistance() + 2;
        const QPoint at(10, bench.box.height() / 2);
        QTest::touchEvent(&bench.box, bench.finger.get()).press(0, at);
        QTest::touchEvent(&bench.box, bench.finger.get()).move(0, at + QPoint(far, 0));
        Bench::WaitPastAHold();
        QVERIFY(bench.ShowsNothing());
        QTest::touchEvent(&bench.box, bench.finger.get()).release(0, at + QPoint(far, 0));
        QVERIFY(bench.box.isChecked());
    }
    void ASlowClickIsAClick() {
        Bench bench;
        const QPoint at(10, bench.box.height() / 2);
        QTest::mousePress(&bench.box, Qt::LeftButton, {}, at);
        Bench::WaitPastAHold();
        QVERIFY(bench.ShowsNothing());
        QTest::mouseRelease(&bench.box, Qt::LeftButton, {}, at);
        QVERIFY(bench.box.isChecked());
    }
    void ACaptionBreaksWhereItHasNoRoom() {
        Bench bench;
        const QSize wide = bench.caption.sizeHint();
        const QSize narrow = bench.caption.minimumSizeHint();
        QVERIFY(narrow.width() < wide.width());
        QVERIFY(wide.width() >= bench.caption.fontMetrics().horizontalAdvance("Name & more:"));
        QVERIFY(narrow.width() >= bench.caption.fontMetrics().horizontalAdvance("more:"));
        QCOMPARE(bench.caption.heightForWidth(wide.width()) <
                     bench.caption.heightForWidth(narrow.width() + 4),
                 true);
    }
};

QTEST_MAIN(TipControlsTest)
#include "tip_controls_test.moc"
