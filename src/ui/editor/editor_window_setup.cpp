// How the controls of the editor are made and what each of them tells the window.
#include <QLabel>
#include <QMenu>
#include <QShortcut>

#include "resources/strings.h"
#include "ui/editor/completion.h"
#include "ui/editor/editor_window.h"
#include "ui/editor/line_area.h"
#include "ui/editor/line_edit.h"
#include "ui/editor/line_label.h"
#include "ui/editor/line_layout.h"
#include "ui/editor/slide_hint.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/gate.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/short_cut_keys.h"

namespace kalvex {

void EditorWindow::AddLines() {
    lines = new LineArea(this);
    connect(lines, &LineArea::Scrolled, this, [this] {
        if (completion != nullptr) completion->Close();
    });
    for (int slot = 0; slot < kSlotCount; ++slot)
        ConnectLine(slot);
}

void EditorWindow::ConnectLine(int slot) {
    const LineArea::Row& row = lines->At(slot);
    const auto toggle = [this, slot] {
        if (!MayRun(*this)) return;
        FocusLine(slot);
        Run(CommandId::Select);
    };
    connect(row.label, &LineLabel::Toggled, this, toggle);
    connect(row.label, &LineLabel::Picked, this, [this, slot] {
        completion->Close();
        FocusLine(slot);
        slideHint->Begin();
    });
    connect(row.label, &LineLabel::SlidTo, this, &EditorWindow::Slide);
    connect(row.label, &LineLabel::Lifted, this, [this] { slideHint->End(); });
    connect(row.edit, &LineEdit::Toggled, this, toggle);
    connect(row.edit, &LineEdit::Focused, this, [this, slot] {
        lastSlot = slot;
        lines->Reveal(slot);
    });
    connect(row.edit, &LineEdit::PopupAsked, this, [this, slot](QPoint at) {
        if (MayRun(*this)) MakeEditMenu(slot)->popup(at);
    });
    connect(row.edit, &QLineEdit::textEdited, this, [this, slot] { lines->Reveal(slot); });
    connect(row.edit, &QLineEdit::textChanged, this, [this, slot](const QString& text) {
        workspace.lines[static_cast<std::size_t>(slot)] = FromQString(text);
        ShowHint(slot);
    });
}

void EditorWindow::AddKeys() {
    bar = new BottomBar(TextOf(StringId::MenuKey), TextOf(StringId::DrawKey), this);
    bar->actionButton()->setToolTip(KeysForTip(EditorShortCuts(), CommandId::Draw));
    bar->menuButton()->setToolTip(TextOf(StringId::MenuKeyTip));
    QPushButton* const insert = bar->AddMiddleKey(TextOf(StringId::InsertKey), "insertKey");
    const QString tip = TextOf(StringId::InsertKeyTip);
    insert->setToolTip(tip);
    insert->setAccessibleDescription(tip);
    connect(bar->menuButton(), &QPushButton::clicked, this, &EditorWindow::OpenMenu);
    connect(insert, &QPushButton::clicked, this, [this, insert] {
        if (!MayRun(*this)) return;
        if (const auto slot = FocusedSlot()) PopUpAbove(*MakeEditMenu(*slot), *insert);
    });
    connect(bar->actionButton(), &QPushButton::clicked, this, [this] { Run(CommandId::Draw); });
    QWidget* last = lines->At(kSlotCount - 1).edit;
    for (QPushButton* const key : {bar->menuButton(), insert, bar->actionButton()}) {
        key->setFocusPolicy(Qt::TabFocus);
        key->setAutoDefault(true);  // Enter works like the space bar
        setTabOrder(last, key);
        last = key;
    }
}

void EditorWindow::AddCompletion() {
    completion = new Completion(this);
    completion->platform = actions.platform;
    completion->room = [this] {
        const QRect above(0, 0, width(), bar->y());
        // With one or two lines left the soft keys give way.
        const bool fewLines = lines->height() < LeastLineAreaHeight();
        return fewLines ? above.united(bar->geometry()) : above;
    };
    connect(completion, &Completion::Told, this, [this] { ShowHint(lastSlot); });
    for (int slot = 0; slot < kSlotCount; ++slot)
        completion->Watch(lines->At(slot).edit);
}

void EditorWindow::AddShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto&& run) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
    };
    AddShortCuts(*this, EditorShortCuts(), [this](CommandId command) {
        if (IsOffered(command)) Run(command);
    });
    add(QKeySequence(Qt::Key_F10), [this] { OpenMenu(); });
    add(QKeySequence(Qt::ALT | Qt::Key_M), [this] { OpenMenu(); });
    add(QKeySequence(Qt::SHIFT | Qt::Key_F10), [this] {
        if (const auto slot = FocusedSlot()) lines->At(*slot).edit->AskForPopup();
    });
}

}  // namespace kalvex
