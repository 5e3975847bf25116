// The window shows the workspace: typing writes into it, commands change it, and ShowLines brings
// the controls up to date. Commands act on the line with the focus, so neither a tap on a soft key
// nor an open menu takes the focus from it.
#include "ui/editor/editor_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QLabel>
#include <QMenu>
#include <utility>

#include "resources/methods.h"
#include "ui/editor/completion.h"
#include "ui/editor/edit_menu.h"
#include "ui/editor/line_area.h"
#include "ui/editor/line_edit.h"
#include "ui/editor/line_label.h"
#include "ui/editor/line_texts.h"
#include "ui/editor/method_dialogs.h"
#include "ui/editor/slide_hint.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/gate.h"
#include "ui/parts/menu_builder.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/short_cut_keys.h"
#include "ui/parts/touch.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

constexpr int kLeastWidth = 240;

std::size_t Index(int slot) {
    return static_cast<std::size_t>(slot);
}

}  // namespace

QRect EditorActions::SystemInputPanel() {
    const QInputMethod& method = *QGuiApplication::inputMethod();
    return method.isVisible() ? method.keyboardRectangle().toAlignedRect() : QRect();
}

EditorWindow::EditorWindow(Workspace& shown, EditorActions given)
    : workspace(shown), actions(std::move(given)), menuState(InitialMainMenu()) {
    setWindowTitle(TextOf(StringId::Title));
    setObjectName("editor");
    setMinimumSize(kLeastWidth, LeastLineAreaHeight() + kBottomBarHeight);
    AddLines();
    AddKeys();
    AddCompletion();
    AddShortcuts();
    slideHint = new SlideHint(this);
    const QInputMethod* const method = QGuiApplication::inputMethod();
    connect(method, &QInputMethod::keyboardRectangleChanged, this, [this] { LayOut(); });
    connect(method, &QInputMethod::visibleChanged, this, [this] { LayOut(); });
    ShowLines();
}

// Hiding makes the lines and the list emit signals, so it happens while all members still exist.
EditorWindow::~EditorWindow() {
    hide();
}

void EditorWindow::ShowLines() {
    for (int slot = 0; slot < kSlotCount; ++slot)
        ShowLine(slot);
}

void EditorWindow::ShowLine(int slot) {
    const FunctionEntry& entry = workspace.functions[Index(slot)];
    const LineArea::Row& row = lines->At(slot);
    std::optional<QColor> color;
    if (workspace.options.ColorText != 0) color = ToQColor(ColorOf(entry.color));
    row.label->Show(ToQString(LabelOf(entry.type)), color, entry.selected == 1);
    row.label->setAccessibleName(NameOfLine(slot, entry));
    row.label->setAccessibleDescription(DescriptionOfLine(entry, {}));
    row.edit->keepsBlanks = entry.type == EquationType::File;
    row.edit->setAccessibleName(NameOfLine(slot, entry));
    const QString text = ToQString(workspace.lines[Index(slot)]);
    if (row.edit->text() != text) row.edit->SetStoredText(text);
    ShowHint(slot);
}

void EditorWindow::ShowHint(int slot) {
    const QString hint = HintOfLine(workspace.lines[Index(slot)]);
    const LineArea::Row& row = lines->At(slot);
    row.hint->setText(hint);
    row.edit->setToolTip(hint);
    const QString offered = completion->SaidOf(row.edit);
    row.edit->setAccessibleDescription(
        offered.isEmpty() ? DescriptionOfLine(workspace.functions[Index(slot)], hint) : offered);
}

std::optional<int> EditorWindow::FocusedSlot() const {
    const QWidget* const focused = focusWidget();
    if (focused == nullptr) return std::nullopt;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (lines->At(slot).edit == focused) return slot;
    }
    return bar->isAncestorOf(focused) ? std::optional(lastSlot) : std::nullopt;
}

void EditorWindow::FocusLine(int slot) {
    lines->At(slot).edit->setFocus(Qt::OtherFocusReason);
}

void EditorWindow::UpdateMenu() {
    const std::optional<int> slot = FocusedSlot();
    MenuContext context;
    context.focusedSlot = slot;
    context.lineEmpty = !slot || workspace.lines[Index(*slot)].empty();
    context.platform = actions.platform;
    UpdateMainMenu(menuState, workspace.functions, context);
}

bool EditorWindow::IsOffered(CommandId command) {
    UpdateMenu();
    const bool hidden = !menuState[CommandId::ApproxTypeMenu].visible;
    if (hidden && MethodOfCommand(command)) return false;
    const auto found = menuState.find(command);
    return found == menuState.end() || found->second.enabled;
}

void EditorWindow::OpenMenu() {
    if (!MayRun(*this)) return;
    UpdateMenu();
    auto* const menu = new QMenu(this);
    menu->setObjectName("mainMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto stateOf = [this](const MenuEntry& entry) {
        const auto found = menuState.find(entry.id);
        return found == menuState.end() ? MenuItemState{entry.text, true, false, true}
                                        : found->second;
    };
    FillMenu(
        *menu, MainMenu(), stateOf, [this](CommandId command) { Run(command); }, EditorShortCuts());
    state.menuOpen = true;
    connect(menu, &QMenu::aboutToHide, this, [this] { state.menuOpen = false; });
    PopUpAbove(*menu, *bar->menuButton());
}

QMenu* EditorWindow::MakeEditMenu(int slot) {
    return NewEditMenu(this, *lines->At(slot).edit, [this](CommandId command) { Run(command); });
}

bool EditorWindow::Run(CommandId command) {
    if (!MayRun(*this)) return false;
    completion->Close();
    state.slot = FocusedSlot();
    const std::optional<EditorStep> step = RunEditorCommand(workspace, state, command);
    if (!step) return actions.run(command);
    if (*step == EditorStep::Nothing) return true;
    ShowLines();
    if (*step == EditorStep::ChoosePointFile) actions.run(CommandId::File);
    if (*step == EditorStep::SetMethodUp)
        OpenMethodDialog(this, workspace.functions[Index(*state.slot)], actions.show);
    return true;
}

void EditorWindow::Slide(QPoint at) {
    const int slot = lines->SlotAt(lines->mapFromGlobal(at).y());
    if (lines->At(slot).edit->hasFocus()) return;
    FocusLine(slot);
    slideHint->ShowNow();
}

void EditorWindow::LayOut() {
    completion->Close();
    const int least = HeightOfLines(1, RowHeight(0)) + kBottomBarHeight;
    const int visible =
        HeightAbovePanel(size(), isActiveWindow() ? actions.inputPanel() : QRect(), least);
    lines->LayOut(width(), height() - kBottomBarHeight, visible - kBottomBarHeight);
    bar->setGeometry(0, visible - kBottomBarHeight, width(), kBottomBarHeight);
    slideHint->PlaceIn(bar->geometry());
    if (const std::optional<int> slot = FocusedSlot()) lines->Reveal(*slot);
}

void EditorWindow::mousePressEvent(QMouseEvent*) {
    completion->Close();
}

void EditorWindow::resizeEvent(QResizeEvent*) {
    LayOut();
}

void EditorWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // Qt gives the place of the input panel relative to the active window.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) LayOut();
}

void EditorWindow::hideEvent(QHideEvent* event) {
    slideHint->End();
    completion->Close();
    QWidget::hideEvent(event);
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
