// Qt's line edit can cut, copy, paste and undo; this file finds the operation of a command number.
#include "ui/editor/edit_menu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <utility>

#include "resources/edit_popup.h"
#include "ui/editor/line_edit.h"
#include "ui/parts/gate.h"
#include "ui/parts/menu_builder.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

bool IsEnabled(const LineEdit& line, CommandId command) {
    switch (command) {
        case CommandId::Cut:
        case CommandId::Copy:
            return line.hasSelectedText();
        case CommandId::Paste:
            return !QGuiApplication::clipboard()->text().isEmpty();
        case CommandId::Undo:
            return line.isUndoAvailable();
        case CommandId::SelectText:
            return !line.text().isEmpty();
        default:
            return true;
    }
}

bool RunTextCommand(LineEdit& line, CommandId command) {
    switch (command) {
        case CommandId::Cut:
            line.cut();
            return true;
        case CommandId::Copy:
            line.copy();
            return true;
        case CommandId::Paste:
            line.PasteText();
            return true;
        case CommandId::Undo:
            line.undo();
            return true;
        case CommandId::SelectText:
            line.selectAll();
            return true;
        default:
            return false;
    }
}

}  // namespace

MenuItemState EditEntryState(const LineEdit& line, const MenuEntry& entry) {
    return {entry.text, IsEnabled(line, entry.id), false, true};
}

bool RunEditCommand(LineEdit& line, CommandId command) {
    const std::u16string inserted = InsertedText(command);
    if (inserted.empty()) return RunTextCommand(line, command);
    line.InsertText(ToQString(inserted));
    return true;
}

QMenu* NewEditMenu(QWidget* window, LineEdit& line, std::function<void(CommandId)> runOther) {
    auto* const menu = new QMenu(window);
    menu->setObjectName("editMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    LineEdit* const edit = &line;
    const auto stateOf = [edit](const MenuEntry& entry) { return EditEntryState(*edit, entry); };
    FillMenu(*menu, EditPopup(), stateOf, [edit, other = std::move(runOther)](CommandId command) {
        if (!MayRun(*edit)) return;
        edit->setFocus(Qt::OtherFocusReason);  // a soft key may have it
        if (!RunEditCommand(*edit, command)) other(command);
    });
    return menu;
}

}  // namespace kalvex
