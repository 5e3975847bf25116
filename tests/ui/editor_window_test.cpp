#include "ui/editor/editor_window.h"

#include <QClipboard>

#include "ui/parts/contrast.h"
#include "ui/parts/touch.h"
#include "ui/parts/touch_style.h"
#include "window_fixture.h"

using namespace kalvex;

class EditorWindowTest final : public QObject {
    Q_OBJECT
  private slots:
    void StartsInLineOneWithTheStoredLines() {
        TestProgram program;
        program.Start();
        QVERIFY(program.Line(1)->hasFocus());
        QCOMPARE(program.Editor().windowTitle(), QString("Kalvex"));
        for (int number = 1; number <= 9; ++number) {
            const auto slot = static_cast<std::size_t>(number - 1);
            QCOMPARE(program.Line(number)->text(),
                     ToQString(program.application.workspace.lines[slot]));
            QCOMPARE(program.Line(number)->property("controlId").toInt(), 999 + number);
            QCOMPARE(program.Label(number)->property("controlId").toInt(), 1999 + number);
            QVERIFY(!program.Line(number)->accessibleName().isEmpty());
        }
        QVERIFY(!program.Line(1)->text().isEmpty());
    }
    void LabelsByType() {
        TestProgram program;
        program.Start();
        const std::pair<int, const char*> rows[] = {{0, " Y(x)="}, {1, " r(x)="}, {2, " Y(x)="},
                                                    {3, " X;Y="},  {4, " F="},    {5, "G(x,y)="}};
        for (const auto& [type, text] : rows) {
            program.Entry(2).type = static_cast<EquationType>(type);
            program.Editor().ShowLines();
            QCOMPARE(program.Label(2)->text(), QString(text));
        }
    }
    void LabelColours() {
        TestProgram program;
        program.Start();
        for (int color = 1; color <= 9; ++color) {
            program.Entry(1).color = color;
            program.Entry(1).selected = 0;
            program.Editor().ShowLines();
            QCOMPARE(program.Label(1)->TextColor(), ToQColor(ColorOf(color)));
            QCOMPARE(program.Label(1)->Ground(), program.Label(1)->palette().window().color());
            program.Entry(1).selected = 1;
            program.Editor().ShowLines();
            QVERIFY(ContrastRatio(program.Label(1)->TextColor(), program.Label(1)->Ground()) >=
                    4.5);
            QVERIFY(program.Label(1)->Ground() != program.Label(1)->palette().window().color());
        }
        program.application.workspace.options.ColorText = 0;
        program.Entry(1).selected = 0;
        program.Editor().ShowLines();
        QCOMPARE(program.Label(1)->TextColor(), program.Label(1)->palette().windowText().color());
    }
    void LabelColoursInADarkTheme() {
        TestProgram program;
        program.Start();
        program.Editor().setPalette(QPalette(QColor(50, 50, 50)));
        for (int color = 1; color <= 9; ++color) {
            program.Entry(1).color = color;
            program.Entry(1).selected = 1;
            program.Editor().ShowLines();
            const LineLabel& label = *program.Label(1);
            QVERIFY(label.Ground() == QColor(Qt::white));
            QVERIFY(ContrastRatio(label.TextColor(), label.Ground()) >= 4.5);
        }
    }
    void SelectionIsMoreThanColour() {
        TestProgram program;
        program.Start();
        program.application.workspace.options.ColorText = 0;
        program.Editor().ShowLines();
        const QRect mark(2, 2, 18, program.Label(3)->height() - 4);
        const auto inked = [&] {
            const QImage image = program.Label(3)->grab(mark).toImage();
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.pixel(x, y) != image.pixel(1, 1)) return true;
                }
            }
            return false;
        };
        QVERIFY(!inked());
        QTest::mouseDClick(program.Label(3), Qt::LeftButton);
        QCOMPARE(int{program.Entry(3).selected}, 1);
        QVERIFY(inked());
        QCOMPARE(program.Label(3)->accessibleDescription(), QString("Violet, selected"));
    }
    void DoubleClickToggles() {
        TestProgram program;
        program.Start();
        QTest::mouseDClick(program.Line(5), Qt::LeftButton);
        QCOMPARE(int{program.Entry(5).selected}, 1);
        QVERIFY(program.Line(5)->hasFocus());
        QTest::mouseDClick(program.Label(5), Qt::LeftButton);
        QCOMPARE(int{program.Entry(5).selected}, 0);
        QTest::mouseClick(program.Label(7), Qt::LeftButton);
        QVERIFY(program.Line(7)->hasFocus());
        QCOMPARE(int{program.Entry(7).selected}, 0);
    }
    void BlanksAreRefused() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        int beeps = 0;
        program.Line(1)->beep = [&beeps] { ++beeps; };
        QTest::keyClicks(program.Line(1), "si n(x )");
        QCOMPARE(program.Line(1)->text(), QString("sin(x)"));
        QCOMPARE(beeps, 2);
        QGuiApplication::clipboard()->setText(" + 2 x\t^ 2\n");
        program.Line(1)->paste();
        QCOMPARE(program.Line(1)->text(), QString("sin(x)+2x^2"));
        QCOMPARE(program.Line(1)->cursorPosition(), 11);
        QVERIFY(program.application.workspace.lines[0] == u"sin(x)+2x^2");
    }
    void FileLinesKeepBlanks() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(1).type = EquationType::File;
        program.Editor().ShowLines();
        QTest::keyClicks(program.Line(1), "/my points.txt");
        QCOMPARE(program.Line(1)->text(), QString("/my points.txt"));
    }
    void AStoredLineIsShownUnchanged() {
        TestProgram program;
        program.store.registry.writeText("2", "equ", u"x + 5");
        program.Start();
        QCOMPARE(program.Line(2)->text(), QString("x + 5"));
    }
    void HintOnLongLines() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        auto* const hint = program.Editor().findChild<QLabel*>("hint1");
        program.Line(1)->setText(QString(49, 'x'));
        QVERIFY(hint->text().isEmpty());
        QTest::keyClicks(program.Line(1), "x");
        QCOMPARE(hint->text(), QString("only the first 50 characters are kept for the next start"));
        QVERIFY(hint->isVisible() && !hint->geometry().isEmpty());
        QVERIFY(hint->sizeHint().width() <= hint->width());
        QTest::keyClick(program.Line(1), Qt::Key_Backspace);
        QVERIFY(hint->text().isEmpty());
    }
    void MenuByMouseKeepsTheLine() {
        TestProgram program;
        program.Start();
        program.Line(4)->setFocus();
        program.Click(program.Editor(), "menuKey");
        QMenu* const menu = OpenedMenu(program.Editor(), "mainMenu");
        QVERIFY(menu != nullptr);
        QCOMPARE(program.Editor().FocusedSlot().value_or(-1), 3);
        QAction* const select = ActionOf(*menu, CommandId::Select);
        QCOMPARE(select->text(), QString("Select"));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(select).center());
        QCOMPARE(int{program.Entry(4).selected}, 1);
        QVERIFY(program.Line(4)->hasFocus());
        program.Click(program.Editor(), "menuKey");
        QMenu* const again = OpenedMenu(program.Editor(), "mainMenu");
        QCOMPARE(ActionOf(*again, CommandId::Select)->text(), QString("Unselect"));
        again->close();
    }
    void MenuByKeyboard() {
        TestProgram program;
        program.Start();
        QTest::keyClick(&program.Editor(), Qt::Key_F10);
        QMenu* const menu = OpenedMenu(program.Editor(), "mainMenu");
        QVERIFY(menu != nullptr);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(int{program.Entry(1).selected}, 1);
        QTest::keyClick(&program.Editor(), Qt::Key_M, Qt::AltModifier);
        QMenu* const again = OpenedMenu(program.Editor(), "mainMenu");
        QVERIFY(again != nullptr);
        QTest::keyClick(again, Qt::Key_Escape);
        QVERIFY(program.Line(1)->hasFocus());
    }
    void MenuState() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(1).color = 5;
        program.Entry(1).type = EquationType::Parametric;
        program.Editor().OpenMenu();
        QMenu* menu = OpenedMenu(program.Editor(), "mainMenu");
        for (int number = 32777; number <= 32785; ++number) {
            const QAction* const action = ActionOf(*menu, static_cast<CommandId>(number));
            QCOMPARE(action->isChecked(), number == 32776 + 5);
        }
        QVERIFY(ActionOf(*menu, CommandId::Parametric)->isChecked());
        QVERIFY(!ActionOf(*menu, CommandId::Decart)->isChecked());
        QVERIFY(!ActionOf(*menu, CommandId::Delete)->isEnabled());
        QVERIFY(!ActionOf(*menu, CommandId::UnselectAll)->isEnabled());
        QVERIFY(ActionOf(*menu, CommandId::Options)->isEnabled());
        QVERIFY(ActionOf(*menu, CommandId::ApproxTypeMenu) == nullptr);
        menu->close();
        program.Entry(1).type = EquationType::File;
        program.Entry(9).selected = 1;
        program.Line(1)->setText("a");
        program.Editor().OpenMenu();
        menu = OpenedMenu(program.Editor(), "mainMenu");
        QVERIFY(ActionOf(*menu, CommandId::ApproxTypeMenu) != nullptr);
        QVERIFY(ActionOf(*menu, CommandId::Delete)->isEnabled());
        ActionOf(*menu, CommandId::UnselectAll)->trigger();
        QVERIFY(!program.Entry(9).selected);
        QVERIFY(!program.Label(9)->selected());
    }
    void ShortCutsAndArrows() {
        TestProgram program;
        program.Start();
        QTest::keyClick(program.Line(1), Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(int{program.Entry(1).selected}, 1);
        QTest::keyClick(program.Line(1), Qt::Key_Down);
        QVERIFY(program.Line(2)->hasFocus());
        QTest::keyClick(program.Line(2), Qt::Key_Up);
        QTest::keyClick(program.Line(1), Qt::Key_Up);
        QVERIFY(program.Line(1)->hasFocus());
        for (const auto& [key, modifier] :
             {std::pair{Qt::Key_F5, Qt::NoModifier}, {Qt::Key_Return, Qt::ControlModifier}}) {
            QTest::keyClick(program.Line(1), key, modifier);
            QVERIFY(program.application.graphWindow->isVisible());
            ReturnToTable(program.application);
            QVERIFY(QTest::qWaitForWindowActive(&program.Editor()));
        }
    }
    void TabOrder() {
        TestProgram program;
        program.Start();
        QStringList order;
        for (int i = 0; i < 12; ++i) {
            order += program.Editor().focusWidget()->objectName();
            QTest::keyClick(program.Editor().focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order, (QStringList{"line1", "line2", "line3", "line4", "line5", "line6", "line7",
                                     "line8", "line9", "menuKey", "insertKey", "actionKey"}));
        QVERIFY(program.Line(1)->hasFocus());
    }
    void SoftKeysByKeyboardActOnTheLastLine() {
        TestProgram program;
        program.Start();
        program.Editor().FocusLine(8);
        QTest::keyClick(program.Line(9), Qt::Key_Tab);
        auto* const key = program.Editor().findChild<QPushButton*>("menuKey");
        QVERIFY(key->hasFocus());
        const QImage with = key->grab().toImage();
        QTest::keyClick(key, Qt::Key_Backtab);
        QVERIFY(key->grab().toImage() != with);
        QTest::keyClick(program.Line(9), Qt::Key_Tab);
        QCOMPARE(program.Editor().FocusedSlot().value_or(-1), 8);
        QTest::keyClick(key, Qt::Key_Return);
        QMenu* const menu = OpenedMenu(program.Editor(), "mainMenu");
        QVERIFY(menu != nullptr);
        ActionOf(*menu, CommandId::Green)->trigger();
        QCOMPARE(program.Entry(9).color, 4);
        menu->close();
    }
    void WhatIsHeardOfALine() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        QCOMPARE(program.Line(2)->accessibleName(), QString("Function 2 Y(x)="));
        QCOMPARE(program.Line(2)->accessibleDescription(), QString("Orange, not selected"));
        program.Editor().FocusLine(1);
        program.Editor().Run(CommandId::Select);
        program.Editor().Run(CommandId::Great);
        program.Editor().Run(CommandId::Implicit);
        program.Line(2)->setText(QString(50, 'x'));
        for (QWidget* const heard :
             {static_cast<QWidget*>(program.Line(2)), static_cast<QWidget*>(program.Label(2))}) {
            QCOMPARE(heard->accessibleName(), QString("Function 2 G(x,y)="));
            QVERIFY(heard->accessibleDescription().startsWith("Great, selected"));
        }
        QVERIFY(program.Line(2)->accessibleDescription().endsWith("for the next start"));
    }
    void TheFocusShows() {
        for (const QColor& ground : {QColor(240, 240, 240), QColor(50, 50, 50)}) {
            TestProgram program;
            program.Start();
            program.ClearLines();
            program.Editor().setPalette(QPalette(ground));
            const QImage with = program.Line(1)->grab().toImage();
            program.Editor().FocusLine(1);
            const QImage without = program.Line(1)->grab().toImage();
            // A row of pixels at the upper edge: the frame shows the focus, not only the caret.
            bool frameDiffers = false;
            for (int y = 0; y < 3; ++y)
                frameDiffers |=
                    with.pixel(with.width() / 2, y) != without.pixel(with.width() / 2, y);
            QVERIFY(frameDiffers);
        }
    }
    void MenuRowsAreLargeEnough() {
        QMenu menu;
        QAction* const row = menu.addAction("Red");
        TouchStyle style;
        menu.setStyle(&style);
        QVERIFY(menu.actionGeometry(row).height() >= kTouchTarget);
    }
    void KeysAreLargeEnough() {
        TestProgram program;
        program.Start();
        for (const char* const name : {"menuKey", "actionKey"}) {
            auto* const key = program.Editor().findChild<QPushButton*>(name);
            QVERIFY(key->height() >= kTouchTarget && key->width() >= kTouchTarget);
            QVERIFY(key->focusPolicy() == Qt::TabFocus);
            QTest::mousePress(key, Qt::LeftButton);
            QVERIFY(program.Line(1)->hasFocus());
            QTest::mouseRelease(key, Qt::LeftButton, {}, QPoint(-50, -50));  // not a click
        }
        program.Editor().resize(1, 1);
        for (int number = 1; number <= 9; ++number) {
            QVERIFY(program.Line(number)->height() >= kTouchTarget);
            QVERIFY(program.Line(number)->geometry().right() < program.Editor().width());
        }
    }
};

QTEST_MAIN(EditorWindowTest)
#include "editor_window_test.moc"
