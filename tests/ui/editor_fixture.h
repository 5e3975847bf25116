// The editor window alone, over a workspace of its own, with a platform and an input panel to
// choose.
#pragma once

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "ui/editor/completion_list.h"
#include "ui/editor/editor_window.h"
#include "ui/editor/line_edit.h"
#include "ui/editor/line_label.h"
#include "ui/parts/qt_text.h"
#include "workspace/defaults.h"

namespace kalvex {

struct EditorBench {
    Workspace workspace = DefaultWorkspace();
    QRect panel;
    int draws = 0;
    EditorWindow window;

    explicit EditorBench(QSize size = QSize(480, 640), std::u16string_view platform = kPocketPc)
        : window(workspace, Actions(platform)) {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            workspace.lines[static_cast<std::size_t>(slot)].clear();
            workspace.functions[static_cast<std::size_t>(slot)].type = EquationType::Decart;
        }
        window.ShowLines();
        window.resize(size);
        window.FocusLine(0);
        window.show();
    }
    bool Start() { return QTest::qWaitForWindowActive(&window); }

    EditorActions Actions(std::u16string_view platform) {
        EditorActions actions;
        actions.run = [this](CommandId command) {
            if (command == CommandId::Draw) ++draws;
            return true;
        };
        actions.show = [](const MessageBox&) { return MessageAnswer::Ok; };
        actions.platform = platform;
        actions.inputPanel = [this] { return panel; };
        return actions;
    }
    LineEdit* Line(int number) {
        return static_cast<LineEdit*>(
            window.findChild<QLineEdit*>("line" + QString::number(number)));
    }
    LineLabel* Label(int number) {
        return static_cast<LineLabel*>(
            window.findChild<QLabel*>("label" + QString::number(number)));
    }
    QPushButton* Key(const char* name) { return window.findChild<QPushButton*>(name); }
    QScrollBar* Scroll() { return window.findChild<QScrollBar*>("lineScroll"); }
    CompletionList* List() {
        return static_cast<CompletionList*>(window.findChild<QListWidget*>("completion"));
    }
    QStringList Offered() {
        QStringList names;
        for (int row = 0; List()->isVisible() && row < List()->count(); ++row)
            names += List()->item(row)->text();
        return names;
    }
    FunctionEntry& Entry(int number) {
        return workspace.functions[static_cast<std::size_t>(number - 1)];
    }
    /// A widget's place in the window.
    QRect PlaceOf(QWidget* widget) {
        return {widget->mapTo(&window, QPoint(0, 0)), widget->size()};
    }
};

}  // namespace kalvex
