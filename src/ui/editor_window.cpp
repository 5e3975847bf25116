// The window only mirrors the workspace: typing writes into it, commands change it and ShowLines
// brings the controls up to date. The line with the focus is the current one; neither the soft
// keys nor a menu take the focus from it.
#include "ui/editor_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <utility>

#include "resources/platform.h"
#include "ui/bottom_bar.h"
#include "ui/line_edit.h"
#include "ui/line_label.h"
#include "ui/line_layout.h"
#include "ui/menu_builder.h"
#include "ui/method_dialogs.h"
#include "ui/qt_text.h"
#include "ui/touch.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

constexpr int kFirstEditId = 1000;
constexpr int kFirstLabelId = 2000;
constexpr int kLeastWidth = 240;
constexpr std::size_t kLongestKeptLine = 49;

std::size_t Index(int slot) {
    return static_cast<std::size_t>(slot);
}

}  // namespace

EditorWindow::EditorWindow(Workspace& shown, EditorActions actions)
    : workspace(shown),
      state{shown, {}, false, {}, {}, {}, {}, {}, {}, {}},
      menuState(InitialMainMenu()) {
    setWindowTitle("Kalvex");
    setObjectName("editor");
    setMinimumSize(kLeastWidth, LeastLineAreaHeight() + kBottomBarHeight);
    state.showLines = [this] { ShowLines(); };
    state.draw = std::move(actions.draw);
    state.exit = std::move(actions.exit);
    state.choosePointFile = std::move(actions.choosePointFile);
    state.openOptions = std::move(actions.openOptions);
    state.openCalculator = std::move(actions.openCalculator);
    state.setMethodUp = [this, show = std::move(actions.show)](int slot) {
        OpenMethodDialog(this, workspace.functions[Index(slot)], show);
    };
    for (int slot = 0; slot < kSlotCount; ++slot)
        AddRow(slot);
    bar = new BottomBar("Menu", "Draw", this);
    bar->actionButton()->setToolTip("F5");
    bar->menuButton()->setToolTip("F10");
    connect(bar->menuButton(), &QPushButton::clicked, this, &EditorWindow::OpenMenu);
    connect(bar->actionButton(), &QPushButton::clicked, this, [this] { Run(CommandId::Draw); });
    AddShortcuts();
    ShowLines();
}

void EditorWindow::AddRow(int slot) {
    Row& row = rows[Index(slot)];
    const QString number = QString::number(slot + 1);
    row.label = new LineLabel(this);
    row.label->setObjectName("label" + number);
    row.label->setProperty("controlId", kFirstLabelId + slot);
    row.label->setAccessibleName("Function " + number);
    row.edit = new LineEdit(this);
    row.edit->setObjectName("line" + number);
    row.edit->setProperty("controlId", kFirstEditId + slot);
    row.hint = new QLabel(this);
    row.hint->setObjectName("hint" + number);
    QFont small = row.hint->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    row.hint->setFont(small);
    const auto toggle = [this, slot] {
        FocusLine(slot);
        Run(CommandId::Select);
    };
    row.label->toggled = toggle;
    row.label->picked = [this, slot] { FocusLine(slot); };
    row.edit->toggled = toggle;
    connect(row.edit, &QLineEdit::textChanged, this, [this, slot](const QString& text) {
        workspace.lines[Index(slot)] = FromQString(text);
        ShowHint(slot);
    });
}

void EditorWindow::AddShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto&& run) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
    };
    for (const auto keys :
         {Qt::Key_F5 | Qt::Modifiers(), Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}) {
        add(QKeySequence(keys), [this] { Run(CommandId::Draw); });
    }
    add(QKeySequence(Qt::CTRL | Qt::Key_Space), [this] { Run(CommandId::Select); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { Run(CommandId::Exit); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Comma), [this] { Run(CommandId::Options); });
    add(QKeySequence(Qt::Key_F9), [this] { Run(CommandId::Calculator); });
    add(QKeySequence(Qt::Key_F10), [this] { OpenMenu(); });
    add(QKeySequence(Qt::ALT | Qt::Key_M), [this] { OpenMenu(); });
}

void EditorWindow::ShowLines() {
    for (int slot = 0; slot < kSlotCount; ++slot)
        ShowLine(slot);
}

void EditorWindow::ShowLine(int slot) {
    const FunctionEntry& entry = workspace.functions[Index(slot)];
    Row& row = rows[Index(slot)];
    std::optional<QColor> color;
    if (workspace.options.ColorText != 0) color = ToQColor(ColorOf(entry.color));
    const QString label = ToQString(LabelOf(entry.type));
    row.label->Show(label, color, entry.selected == 1);
    row.edit->keepsBlanks = entry.type == static_cast<std::int32_t>(EquationType::File);
    row.edit->setAccessibleName("Function " + QString::number(slot + 1) + label);
    const QString text = ToQString(workspace.lines[Index(slot)]);
    if (row.edit->text() != text) row.edit->SetStoredText(text);
    ShowHint(slot);
}

void EditorWindow::ShowHint(int slot) {
    const bool tooLong = workspace.lines[Index(slot)].size() > kLongestKeptLine;
    const QString text =
        tooLong ? QString("only the first 50 characters are kept for the next start") : QString();
    Row& row = rows[Index(slot)];
    row.hint->setText(text);
    row.edit->setToolTip(text);
    row.edit->setAccessibleDescription(text);
}

std::optional<int> EditorWindow::FocusedSlot() const {
    const QWidget* const focused = focusWidget();
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (focused != nullptr && rows[Index(slot)].edit == focused) return slot;
    }
    return std::nullopt;
}

void EditorWindow::FocusLine(int slot) {
    rows[Index(slot)].edit->setFocus(Qt::OtherFocusReason);
}

void EditorWindow::OpenMenu() {
    const std::optional<int> slot = FocusedSlot();
    MenuContext context;
    context.focusedSlot = slot;
    context.lineEmpty = !slot || workspace.lines[Index(*slot)].empty();
    context.platform = kPlatformType;
    UpdateMainMenu(menuState, workspace.functions, context);
    auto* const menu = new QMenu(this);
    menu->setObjectName("mainMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto stateOf = [this](const MenuEntry& entry) {
        const auto found = menuState.find(entry.id);
        return found == menuState.end() ? MenuItemState{entry.text, true, false, true}
                                        : found->second;
    };
    FillMenu(*menu, MainMenu(), stateOf, [this](CommandId command) { Run(command); });
    state.menuOpen = true;
    connect(menu, &QMenu::aboutToHide, this, [this] { state.menuOpen = false; });
    PopUpAbove(*menu, *bar->menuButton());
}

bool EditorWindow::Run(CommandId command) {
    state.slot = FocusedSlot();
    return RunCommand(state, command);
}

void EditorWindow::resizeEvent(QResizeEvent*) {
    const int areaHeight = height() - kBottomBarHeight;
    const auto places = LayOutLines(width(), areaHeight);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const Row& row = rows[Index(slot)];
        row.label->setGeometry(places[Index(slot)].label);
        row.edit->setGeometry(places[Index(slot)].edit);
        row.hint->setGeometry(places[Index(slot)].hint);
    }
    bar->setGeometry(0, areaHeight, width(), kBottomBarHeight);
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // `Exit` decides what becomes of the window
    Run(CommandId::Exit);
}

void EditorWindow::keyPressEvent(QKeyEvent* event) {
    const std::optional<int> slot = FocusedSlot();
    const int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
    if (!slot || step == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int next = *slot + step;
    if (next >= 0 && next < kSlotCount) FocusLine(next);
}

}  // namespace kalvex
