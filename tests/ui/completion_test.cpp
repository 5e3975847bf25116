#include "ui/editor/completion.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <tuple>

#include "editor_fixture.h"

using namespace kalvex;

namespace {

QPoint CentreOf(const QListWidget& list, int row) {
    return list.visualItemRect(list.item(row)).center();
}

}  // namespace

class CompletionTest final : public QObject {
    Q_OBJECT
  private slots:
    void ALetterOffersNames() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const std::pair<const char*, QStringList> rows[] = {
            {"s", {"sin", "sh"}},
            {"si", {"sin"}},
            {"six", {}},
            {"2*s", {"sin", "sh"}},
            {"2*", {}},
            {"2s", {"sin", "sh"}},
            {"xs", {}},
            {"x;c", {"cos", "ch"}},
            {"sin(L", {"Li", "Lag", "Leg"}},
            {"sin(x)S", {"Si", "Shi", "Sf"}},
            {"z", {}},
        };
        for (const auto& [typed, names] : rows) {
            bench.Line(1)->clear();
            QTest::keyClicks(bench.Line(1), typed);
            QCOMPARE(bench.Offered(), names);
            QCOMPARE(bench.Line(1)->text(), QString(typed));
            QVERIFY(bench.Line(1)->hasFocus());
        }
        QCOMPARE(bench.window.findChildren<QListWidget*>("completion").size(), 1);
        QCOMPARE(bench.List()->property("controlId").toInt(), 50);
        QVERIFY(bench.List()->parentWidget() == &bench.window);
    }
    void TheWordEndsAtTheCaret() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.Line(1)->setText("x+in(x)");
        bench.Line(1)->setCursorPosition(2);
        QTest::keyClicks(bench.Line(1), "s");
        QCOMPARE(bench.Offered(), (QStringList{"sin", "sh"}));
        QTest::mouseClick(bench.List()->viewport(), Qt::LeftButton, {}, CentreOf(*bench.List(), 1));
        QCOMPARE(bench.Line(1)->text(), QString("x+shin(x)"));
        QCOMPARE(bench.Line(1)->cursorPosition(), 4);
    }
    void OtherPlatformsOfferNothing() {
        EditorBench bench(QSize(480, 640), u"SmartPhone");
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "s");
        QVERIFY(bench.Offered().isEmpty());
        QCOMPARE(bench.Line(1)->text(), QString("s"));
    }
    void APathIsNoExpression() {
        EditorBench bench;
        bench.Entry(1).type = EquationType::File;
        bench.window.ShowLines();
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "s");
        QVERIFY(bench.Offered().isEmpty());
    }
    void ATapChoosesAndCloses() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "2*s");
        QTest::mouseClick(bench.List()->viewport(), Qt::LeftButton, {}, CentreOf(*bench.List(), 0));
        QCOMPARE(bench.Line(1)->text(), QString("2*sin"));
        QVERIFY(!bench.List()->isVisible());
        QVERIFY(bench.Line(1)->hasFocus());
        QVERIFY(bench.workspace.lines[0] == u"2*sin");
        QTest::keyClicks(bench.Line(1), "(x)");
        bench.Line(1)->undo();
        QCOMPARE(bench.Line(1)->text(), QString("2*sin"));
        bench.Line(1)->undo();
        QCOMPARE(bench.Line(1)->text(), QString("2*s"));
        QVERIFY(!bench.List()->isVisible());
    }
    void AChangedSelectionChooses() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "C");
        bench.List()->setCurrentRow(3);
        QCOMPARE(bench.Line(1)->text(), QString("Cheb"));
        QVERIFY(!bench.List()->isVisible());
    }
    void ADoubleTapOnANameStaysInTheLine() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "s");
        QWidget* const viewport = bench.List()->viewport();
        const QPoint at = viewport->mapTo(&bench.window, CentreOf(*bench.List(), 0));
        QTest::mouseClick(viewport, Qt::LeftButton, {}, CentreOf(*bench.List(), 0));
        // The list has closed, so the second tap reaches the line behind it.
        QWidget* const behind = bench.window.childAt(at);
        QVERIFY(behind == bench.Line(2));
        QTest::mouseDClick(behind, Qt::LeftButton, {}, behind->mapFrom(&bench.window, at));
        QCOMPARE(int{bench.Entry(2).selected}, 0);
        QVERIFY(bench.Line(1)->hasFocus());
        QTest::mousePress(behind, Qt::LeftButton);
        QTest::mouseRelease(behind, Qt::LeftButton);
        QTest::mouseDClick(behind, Qt::LeftButton);
        QCOMPARE(int{bench.Entry(2).selected}, 1);
    }
    void SlidingOffANameChoosesNothing() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "s");
        QWidget* const viewport = bench.List()->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, CentreOf(*bench.List(), 0));
        QCOMPARE(bench.List()->Highlighted(), 0);
        QTest::mouseMove(viewport, QPoint(5, 400));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(5, 400));
        QCOMPARE(bench.Line(1)->text(), QString("s"));
        QVERIFY(bench.List()->isVisible());
    }
    void Keyboard() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "a");
        QCOMPARE(bench.List()->Highlighted(), -1);
        QTest::keyClick(bench.Line(1), Qt::Key_Return);
        QVERIFY(bench.List()->isVisible());  // no name is highlighted, so the list stays open
        QTest::keyClick(bench.Line(1), Qt::Key_Down);
        QTest::keyClick(bench.Line(1), Qt::Key_Down);
        QCOMPARE(bench.List()->Highlighted(), 1);
        QVERIFY(bench.List()->selectedItems().isEmpty());
        QCOMPARE(bench.Line(1)->accessibleDescription(), QString("asin, 2 of 4"));
        QCOMPARE(bench.Line(1)->text(), QString("a"));
        for (int i = 0; i < 9; ++i)
            QTest::keyClick(bench.Line(1), Qt::Key_Down);
        QCOMPARE(bench.List()->Highlighted(), 3);
        QTest::keyClick(bench.Line(1), Qt::Key_Up);
        QTest::keyClick(bench.Line(1), Qt::Key_Return);
        QCOMPARE(bench.Line(1)->text(), QString("atg"));
        QVERIFY(!bench.List()->isVisible());
        QVERIFY(bench.Line(1)->hasFocus());
        QTest::keyClick(bench.Line(1), Qt::Key_Down);
        QVERIFY(bench.Line(2)->hasFocus());
    }
    void EscapeCloses() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "a");
        QTest::keyClick(bench.Line(1), Qt::Key_Escape);
        QVERIFY(!bench.List()->isVisible());
        QCOMPARE(bench.Line(1)->text(), QString("a"));
    }
    void WhichKeysClose() {
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, bool> rows[] = {
            {Qt::Key_Space, Qt::NoModifier, true},     {Qt::Key_Return, Qt::NoModifier, true},
            {Qt::Key_Enter, Qt::KeypadModifier, true}, {Qt::Key_Shift, Qt::NoModifier, true},
            {Qt::Key_Control, Qt::NoModifier, true},   {Qt::Key_Backspace, Qt::NoModifier, false},
            {Qt::Key_2, Qt::NoModifier, false},        {Qt::Key_ParenLeft, Qt::NoModifier, false},
            {Qt::Key_Z, Qt::NoModifier, false},        {Qt::Key_Left, Qt::NoModifier, false},
            {Qt::Key_Tab, Qt::NoModifier, false},      {Qt::Key_A, Qt::ControlModifier, false},
        };
        for (const auto& [key, modifiers, open] : rows) {
            EditorBench bench;
            QVERIFY(bench.Start());
            bench.Line(1)->beep = [] {};
            QTest::keyClicks(bench.Line(1), "s");
            QVERIFY(bench.List()->isVisible());
            QTest::keyClick(bench.Line(1), key, modifiers);
            QVERIFY2(bench.List()->isVisible() == open, qPrintable(QString::number(key, 16)));
        }
    }
    void WhatElseCloses() {
        EditorBench bench(QSize(480, 300));
        QVERIFY(bench.Start());
        const std::pair<const char*, std::function<void()>> rows[] = {
            {"a press", [&] { QTest::mouseClick(bench.Line(1), Qt::LeftButton); }},
            {"another line", [&] { bench.window.FocusLine(1); }},
            {"scrolling", [&] { bench.Scroll()->setValue(1); }},
            {"another size", [&] { bench.window.resize(480, 320); }},
            {"a cleared line", [&] { bench.window.Run(CommandId::Delete); }},
            {"a tap on the label", [&] { QTest::mouseClick(bench.Label(1), Qt::LeftButton); }},
            {"a double tap on the label",
             [&] { QTest::mouseDClick(bench.Label(1), Qt::LeftButton); }},
            {"a tap beside the lines",
             [&] { QTest::mouseClick(&bench.window, Qt::LeftButton, {}, QPoint(1, 1)); }},
            {"a colour", [&] { QTest::keyClick(bench.Line(1), Qt::Key_4, Qt::AltModifier); }},
            {"pasting", [&] { bench.Line(1)->insert("x"); }},
            {"the menu",
             [&] {
                 bench.window.OpenMenu();
                 bench.window.findChild<QMenu*>("mainMenu")->close();
             }},
        };
        for (const auto& [what, act] : rows) {
            bench.window.FocusLine(0);
            bench.Line(1)->clear();
            QTest::keyClicks(bench.Line(1), "s");
            QVERIFY2(bench.List()->isVisible(), what);
            act();
            QVERIFY2(!bench.List()->isVisible(), what);
            bench.Scroll()->setValue(0);
        }
    }
    void InputMethodsTypeToo() {
        EditorBench bench;
        QVERIFY(bench.Start());
        int beeps = 0;
        bench.Line(1)->beep = [&beeps] { ++beeps; };
        const auto commit = [&](const QString& text) {
            QInputMethodEvent event;
            event.setCommitString(text);
            QApplication::sendEvent(bench.Line(1), &event);
        };
        commit("s");
        QCOMPARE(bench.Offered(), (QStringList{"sin", "sh"}));
        commit(" ");
        QCOMPARE(beeps, 1);
        QCOMPARE(bench.Line(1)->text(), QString("s"));
        commit("2");
        QVERIFY(bench.Offered().isEmpty());
        QCOMPARE(bench.Line(1)->text(), QString("s2"));
    }
    void PastedLettersAreNotTyped() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QGuiApplication::clipboard()->setText("s");
        QTest::keyClick(bench.Line(1), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(bench.Line(1)->text(), QString("s"));
        QVERIFY(bench.Offered().isEmpty());
    }
    void ItSaysWhatItOffers() {
        EditorBench bench;
        QVERIFY(bench.Start());
        const QString before = bench.Line(1)->accessibleDescription();
        QTest::keyClicks(bench.Line(1), "e");
        QCOMPARE(bench.Line(1)->accessibleDescription(), QString("names: exp, erf"));
        QTest::keyClick(bench.Line(1), Qt::Key_Escape);
        QCOMPARE(bench.Line(1)->accessibleDescription(), before);
    }
    void ItStaysInTheWindow() {
        for (const QSize size : {QSize(480, 640), QSize(640, 400), QSize(240, 181), QSize(300, 300),
                                 QSize(1280, 800)}) {
            EditorBench bench(size);
            QVERIFY(bench.Start());
            for (int number = 1; number <= kSlotCount; ++number) {
                bench.window.FocusLine(number - 1);
                bench.Line(number)->setText(QString(60, '2'));
                QTest::keyClicks(bench.Line(number), "C");
                QVERIFY(bench.List()->isVisible());
                const QRect list = bench.PlaceOf(bench.List());
                QVERIFY(bench.window.rect().contains(list));
                QVERIFY(!list.intersects(bench.PlaceOf(bench.Line(number))));
                QVERIFY(list.height() >= 40);
                QVERIFY(!list.intersects(bench.PlaceOf(bench.Key("menuKey"))));
                QTest::keyClick(bench.Line(number), Qt::Key_Escape);
            }
        }
    }
    void AWindowGoesWithItsList() {
        const auto bench = std::make_unique<EditorBench>();
        QVERIFY(bench->Start());
        QTest::keyClicks(bench->Line(1), "s");
        QTest::mousePress(bench->Label(2), Qt::LeftButton);
        bench->window.FocusLine(0);
        QTest::keyClicks(bench->Line(1), "*C");
        QVERIFY(bench->List()->isVisible());
    }
    void RowsAreLargeEnough() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(9), "x");
        QTest::keyClicks(bench.Line(1), "l");
        for (int row = 0; row < 3; ++row) {
            const QRect place = bench.List()->visualItemRect(bench.List()->item(row));
            QVERIFY(place.height() >= 40);
            QVERIFY(bench.List()->viewport()->rect().contains(place));
        }
    }
};

QTEST_MAIN(CompletionTest)
#include "completion_test.moc"
