// A program without a settings file: windows on the offscreen platform over a memory store.
#pragma once

#include <QCursor>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include "resources/strings.h"
#include "settings/faulty_registry.h"
#include "ui/application.h"
#include "ui/editor/line_edit.h"
#include "ui/editor/line_label.h"
#include "ui/graph/graph_canvas.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/qt_text.h"

namespace kalvex {

struct TestProgram {
    FaultyRegistry store = MakeFilledRegistry();
    ShownBoxes shown;
    QTemporaryDir folder;
    int quits = 0;
    Application application;

    TestProgram() {
        application.registry = store.registry;
        application.show = shown.show;
        application.quit = [this] { ++quits; };
        application.pictureFolder = folder.filePath("pictures");
        application.windowStatePath = folder.filePath("window.ini").toStdString();
    }

    void Start() {
        StartApplication(application);
        QVERIFY(QTest::qWaitForWindowActive(application.editor.get()));
        ShowThePointer();
    }
    /// Puts the pointer on the screen. Until the pointer has been somewhere, menus of Qt 6.8 ignore
    /// clicks.
    void ShowThePointer() {
        QCursor::setPos(application.editor->screen()->geometry().bottomRight());
        QCoreApplication::processEvents();
    }
    EditorWindow& Editor() { return *application.editor; }
    GraphWindow& Graph() { return *application.graphWindow; }
    GraphCanvas& Canvas() { return application.graphWindow->Canvas(); }
    LineEdit* Line(int number) {
        return static_cast<LineEdit*>(
            Editor().findChild<QLineEdit*>("line" + QString::number(number)));
    }
    LineLabel* Label(int number) {
        return static_cast<LineLabel*>(
            Editor().findChild<QLabel*>("label" + QString::number(number)));
    }
    FunctionEntry& Entry(int number) {
        return application.workspace.functions[static_cast<std::size_t>(number - 1)];
    }
    void ClearLines() {
        for (int number = 1; number <= kSlotCount; ++number) {
            Line(number)->clear();
            Entry(number) = {};
            Entry(number).type = EquationType::Decart;
            Entry(number).color = number;
        }
        Editor().ShowLines();
    }
    void Click(QWidget& window, const char* key) {
        QTest::mouseClick(window.findChild<QPushButton*>(key), Qt::LeftButton);
    }
    /// Draws and waits for the first computed picture.
    void OpenGraph() {
        Editor().Run(CommandId::Draw);
        QVERIFY(application.graphWindow != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(application.graphWindow.get()));
        QTRY_VERIFY(Canvas().RedrawCount() > 0);
    }
    const MessageBox& LastBox() { return shown.boxes->back(); }
};

/// The menu of a name that is open.
inline QMenu* OpenedMenu(QWidget& window, const char* name) {
    for (QMenu* const menu : window.findChildren<QMenu*>(name)) {
        if (menu->isVisible()) return menu;
    }
    return nullptr;
}

/// The action of a command in a menu or its submenus.
inline QAction* ActionOf(const QMenu& menu, CommandId command) {
    for (QAction* const action : menu.actions()) {
        if (!action->isSeparator() && action->data().toInt() == static_cast<int>(command)) {
            return action;
        }
        if (action->menu() == nullptr) continue;
        if (QAction* const found = ActionOf(*action->menu(), command)) return found;
    }
    return nullptr;
}

}  // namespace kalvex
