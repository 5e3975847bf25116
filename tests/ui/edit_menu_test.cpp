#include "ui/editor/edit_menu.h"

#include <QClipboard>
#include <QContextMenuEvent>

#include "editor_fixture.h"
#include "resources/edit_popup.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

QMenu* Opened(EditorBench& bench) {
    return OpenedMenu(bench.window, "editMenu");
}

bool IsEnabled(EditorBench& bench, CommandId command) {
    const std::unique_ptr<QMenu> menu(NewEditMenu(&bench.window, *bench.Line(1), [](CommandId) {}));
    return ActionOf(*menu, command)->isEnabled();
}

void CollectInserts(const Menu& menu, std::vector<CommandId>& ids) {
    for (const MenuEntry& entry : menu) {
        if (!InsertedText(entry.id).empty()) ids.push_back(entry.id);
        CollectInserts(entry.children, ids);
    }
}

}  // namespace

class EditMenuTest final : public QObject {
    Q_OBJECT
  private slots:
    void EveryNameIsInserted() {
        EditorBench bench;
        QVERIFY(bench.Start());
        std::vector<CommandId> ids;
        CollectInserts(EditPopup(), ids);
        QCOMPARE(ids.size(), std::size_t{27});
        for (const CommandId id : ids) {
            bench.Line(1)->clear();
            QTest::keyClicks(bench.Line(1), "2*");
            const std::unique_ptr<QMenu> menu(
                NewEditMenu(&bench.window, *bench.Line(1), [](CommandId) {}));
            QAction* const action = ActionOf(*menu, id);
            action->trigger();
            QCOMPARE(bench.Line(1)->text(), "2*" + action->text() + "(");
            QCOMPARE(bench.Line(1)->cursorPosition(), 3 + action->text().size());
            QVERIFY(bench.workspace.lines[0] == FromQString(bench.Line(1)->text()));
            bench.Line(1)->undo();
            QCOMPARE(bench.Line(1)->text(), QString("2*"));
        }
    }
    void TheSelectionIsReplaced() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QTest::keyClicks(bench.Line(1), "2*cos(x)");
        bench.Line(1)->setSelection(2, 4);
        RunEditCommand(*bench.Line(1), CommandId::InsertDawsonF);
        QCOMPARE(bench.Line(1)->text(), QString("2*DawsonF(x)"));
        bench.Line(1)->undo();
        QCOMPARE(bench.Line(1)->text(), QString("2*cos(x)"));
        QVERIFY(!bench.List()->isVisible());
    }
    // KEEP row: ctg is offered although the language does not know it.
    void CtgIsOfferedAndRefused() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(1).selected = 1;
        QVERIFY(RunEditCommand(*program.Line(1), CommandId::InsertCtg));
        QTest::keyClicks(program.Line(1), "x)");
        QCOMPARE(program.Line(1)->text(), QString("ctg(x)"));
        program.Editor().Run(CommandId::Draw);
        QVERIFY(program.LastBox().text.ends_with(Text(StringId::UnknownLexeme)));
    }
    void TextCommandsAreEnabledWhileTheyDoSomething() {
        EditorBench bench;
        QVERIFY(bench.Start());
        QGuiApplication::clipboard()->clear();
        for (const CommandId id : {CommandId::Cut, CommandId::Copy, CommandId::Paste,
                                   CommandId::Undo, CommandId::SelectText}) {
            QVERIFY2(!IsEnabled(bench, id), qPrintable(QString::number(static_cast<int>(id))));
        }
        QGuiApplication::clipboard()->setText("x");
        QVERIFY(IsEnabled(bench, CommandId::Paste));
        QTest::keyClicks(bench.Line(1), "x+1");
        QVERIFY(IsEnabled(bench, CommandId::Undo));
        QVERIFY(IsEnabled(bench, CommandId::SelectText));
        QVERIFY(!IsEnabled(bench, CommandId::Cut));
        bench.Line(1)->selectAll();
        QVERIFY(IsEnabled(bench, CommandId::Cut));
        QVERIFY(IsEnabled(bench, CommandId::Copy));
        QVERIFY(IsEnabled(bench, CommandId::InsertSin));
        QVERIFY(IsEnabled(bench, CommandId::EditHelp));
    }
    void TextCommands() {
        EditorBench bench;
        QVERIFY(bench.Start());
        LineEdit& line = *bench.Line(1);
        QTest::keyClicks(&line, "x+1");
        QVERIFY(RunEditCommand(line, CommandId::SelectText));
        QCOMPARE(line.selectedText(), QString("x+1"));
        RunEditCommand(line, CommandId::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("x+1"));
        QCOMPARE(line.text(), QString("x+1"));
        line.setSelection(1, 2);
        RunEditCommand(line, CommandId::Cut);
        QCOMPARE(line.text(), QString("x"));
        RunEditCommand(line, CommandId::Paste);
        RunEditCommand(line, CommandId::Paste);
        QCOMPARE(line.text(), QString("x+1+1"));
        RunEditCommand(line, CommandId::Undo);
        QCOMPARE(line.text(), QString("x+1"));
        QVERIFY(!RunEditCommand(line, CommandId::EditHelp));
        QVERIFY(!RunEditCommand(line, CommandId::Draw));
    }
    void ByTheRightButton() {
        EditorBench bench;
        QVERIFY(bench.Start());
        LineEdit* const line = bench.Line(3);
        const QPoint at(30, 10);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, line->mapToGlobal(at));
        QApplication::sendEvent(line, &event);
        QVERIFY(Opened(bench) != nullptr);
        QCOMPARE(Opened(bench)->pos(), line->mapToGlobal(at));
        QCOMPARE(bench.window.FocusedSlot().value_or(-1), 2);
        Opened(bench)->close();
        QVERIFY(line->hasFocus());
    }
    void ByTheKeyboard() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.window.FocusLine(1);
        QTest::keyClick(bench.Line(2), Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(Opened(bench) != nullptr);
        QTest::keyClick(Opened(bench), Qt::Key_Escape);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
        QApplication::sendEvent(bench.Line(2), &event);
        QMenu* const menu = Opened(bench);
        QVERIFY(menu != nullptr);
        // Function, Trig, sin.
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Right);
        QMenu* const function = menu->actions().first()->menu();
        QTRY_VERIFY(function->isVisible());
        QTest::keyClick(function, Qt::Key_Right);
        QMenu* const trig = function->actions().first()->menu();
        QTRY_VERIFY(trig->isVisible());
        QTest::keyClick(trig, Qt::Key_Return);
        QCOMPARE(bench.Line(2)->text(), QString("sin("));
        QVERIFY(bench.Line(2)->hasFocus());
    }
    void ByTheSoftKey() {
        EditorBench bench;
        QVERIFY(bench.Start());
        bench.window.FocusLine(4);
        QPushButton* const key = bench.Key("insertKey");
        QVERIFY(key->width() >= 40 && key->height() >= 40);
        QTest::mouseClick(key, Qt::LeftButton);
        QMenu* const menu = Opened(bench);
        QVERIFY(menu != nullptr);
        QCOMPARE(bench.window.FocusedSlot().value_or(-1), 4);
        ActionOf(*menu, CommandId::InsertAi)->trigger();
        QCOMPARE(bench.Line(5)->text(), QString("Ai("));
        menu->close();
        // Opened by keyboard, the soft key has the focus; afterwards the line has it again.
        bench.window.FocusLine(8);
        QTest::keyClick(bench.Line(9), Qt::Key_Tab);
        QTest::keyClick(bench.Key("menuKey"), Qt::Key_Tab);
        QTest::keyClick(key, Qt::Key_Space);
        ActionOf(*Opened(bench), CommandId::InsertBi)->trigger();
        QVERIFY(bench.Line(9)->hasFocus());
        QCOMPARE(bench.Line(9)->text(), QString("Bi("));
    }
};

QTEST_MAIN(EditMenuTest)
#include "edit_menu_test.moc"
