// The canvas is above, the soft keys are below; in full screen there is the canvas alone. The mode
// is part of GraphState: after every change the window asks for the title and sets its two keys. A
// picture is exported a moment after the command, when the menu has left the screen.
#include "ui/graph/graph_window.h"

#include <QCloseEvent>
#include <QMenu>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "graph/trace.h"
#include "resources/menus.h"
#include "ui/graph/graph_keys.h"
#include "ui/graph/view_dialogs.h"
#include "ui/parts/bottom_bar.h"
#include "ui/parts/gate.h"
#include "ui/parts/menu_builder.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/short_cut_keys.h"
#include "ui/parts/touch.h"
#include "ui/window_state.h"

namespace kalvex {
namespace {

constexpr QSize kLeastCanvas(240, 120);  // logical pixels
constexpr int kPictureDelay = 200;       // milliseconds
constexpr int kLayoutDelay = 100;

bool CanTraceAny(const FunctionList& functions) {
    return std::any_of(functions.begin(), functions.end(), CanTrace);
}

}  // namespace

GraphWindow::GraphWindow(GraphState& shownGraph, Workspace& shown, WindowActions given)
    : graph(shownGraph), workspace(shown), actions(std::move(given)) {
    setWindowTitle(TextOf(StringId::Title));
    setObjectName("graph");
    setMinimumSize(kLeastCanvas.width(), kLeastCanvas.height() + kBottomBarHeight);
    AddCanvas();
    bar = new BottomBar(TextOf(StringId::MenuKey), TextOf(StringId::TraceKey), this);
    connect(bar->menuButton(), &QPushButton::clicked, this, &GraphWindow::PressLeftKey);
    connect(bar->actionButton(), &QPushButton::clicked, this, &GraphWindow::PressRightKey);
    pictureTimer.setSingleShot(true);
    pictureTimer.setInterval(kPictureDelay);
    connect(&pictureTimer, &QTimer::timeout, this, [this] {
        // A computation holds back input, so the message box could not be answered.
        if (canvas->IsComputing() || IsAnythingOpen()) {
            pictureTimer.start();
        } else {
            actions.run(CommandId::Picture);
        }
    });
    layoutTimer.setSingleShot(true);
    layoutTimer.setInterval(kLayoutDelay);
    connect(&layoutTimer, &QTimer::timeout, this, &GraphWindow::LayOut);
    AddShortcuts();
    ShowMode();
}

void GraphWindow::AddCanvas() {
    const auto isStopKey = [this](QPointF at) {
        const QPushButton& key = *bar->menuButton();
        return key.isVisible() && key.rect().contains(key.mapFromGlobal(at).toPoint());
    };
    canvas = new GraphCanvas(graph, workspace, isStopKey, actions.show, this);
    connect(canvas, &GraphCanvas::Slow, this, [this] {
        if (std::exchange(leftKeyEscapes, true)) return;
        bar->menuButton()->setText(TextOf(StringId::EscapeKey));
        bar->repaint();
    });
    connect(canvas, &GraphCanvas::Changed, this, &GraphWindow::ShowMode);
    connect(canvas, &GraphCanvas::Held, this, &GraphWindow::OpenPopup);
}

void GraphWindow::AddShortcuts() {
    const auto add = [this](const QKeySequence& keys, auto&& run) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false);  // a held Escape leaves one level, not several
        connect(shortcut, &QShortcut::activated, this, run);
    };
    add(QKeySequence(Qt::Key_F10), [this] { OpenMenu(); });
    add(QKeySequence(Qt::ALT | Qt::Key_M), [this] { OpenMenu(); });
    add(QKeySequence(Qt::Key_Escape), [this] { Escape(); });
    AddShortCuts(*this, GraphShortCuts(), [this](CommandId command) { Run(command); });
}

void GraphWindow::OpenMenu() {
    if (!MayRun(*this)) return;
    auto* const menu = new QMenu(this);
    menu->setObjectName("graphMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto stateOf = [](const MenuEntry& entry) {
        return MenuItemState{entry.text, true, false, true};
    };
    FillMenu(
        *menu, GraphMenu(), stateOf, [this](CommandId command) { Run(command); }, GraphShortCuts());
    PopUpAbove(*menu, *bar->menuButton());
}

void GraphWindow::OpenPopup(QPoint at) {
    if (!MayRun(*this)) return;
    popupPoint = {at.x(), at.y()};
    auto* const menu = new QMenu(this);
    menu->setObjectName("fullScreenPopup");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto stateOf = [this](const MenuEntry& entry) {
        const bool checked = entry.id == CommandId::PopupFullScreen && isFullScreen();
        return MenuItemState{entry.text, true, checked, true};
    };
    FillMenu(*menu, FullScreenPopup(), stateOf, [this](CommandId command) { Run(command); });
    menu->popup(canvas->mapToGlobal(at));
}

bool GraphWindow::Run(CommandId command) {
    if (!MayRun(*this)) return false;
    if (canvas->IsComputing() && command != CommandId::Picture) {
        RunAfterComputation(command);
        return true;
    }
    canvas->EndGestures();
    keyGesture = {};
    std::optional<PictureChange> change;
    const auto boxes = BoxesOf([&](const ShowMessage& tell) {
        change = RunExploreCommand(graph, workspace.functions, command, tell);
    });
    if (change) {
        Tell(actions.show, boxes, [this, change = *change] { canvas->Apply(change); });
        return true;
    }
    return RunShellCommand(command) || RunDialogCommand(command) || RunPopupCommand(command) ||
           actions.run(command);
}

void GraphWindow::RunAfterComputation(CommandId command) {
    canvas->Stop();
    connect(
        canvas, &GraphCanvas::Redrawn, this, [this, command] { Run(command); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

bool GraphWindow::RunShellCommand(CommandId command) {
    switch (command) {
        case CommandId::GraphTable:
            LeavePick();
            return actions.run(command);
        case CommandId::FullScreen:
            LeavePick();
            ToggleFullScreen();
            return true;
        case CommandId::Picture:
            pictureTimer.start();
            return true;
        case CommandId::Analyze:
            Analyse();
            return true;
        case CommandId::Options:
            LeavePick();
            return actions.run(command);
        default:
            return false;
    }
}

void GraphWindow::Analyse() {
    const FunctionEntry* const traced = TracedFunction(graph, workspace.functions);
    if (graph.mode != GraphMode::Trace || traced == nullptr || !OffersAnalysis(*traced)) return;
    // Earlier keys may have moved the view, or a stop may have left this line without samples. The
    // samples must be all those of the interval that is analysed.
    if (traced->samples.empty()) canvas->ScheduleRedraw();
    if (canvas->BringUpToDate() && !traced->samples.empty()) actions.run(CommandId::Analyze);
}

bool GraphWindow::RunDialogCommand(CommandId command) {
    if (command != CommandId::ViewWindowDialog && command != CommandId::ZoomFactor) return false;
    LeavePick();
    ViewWindow& view = graph.viewport.view;
    const auto changed = [this] {
        LayoutViewport(graph.viewport);
        canvas->Apply(PictureChange::Curves);
    };
    if (command == CommandId::ViewWindowDialog) {
        OpenViewWindowDialog(this, view, actions.show, changed);
    } else {
        OpenFactorDialog(this, view, actions.show, [] {});
    }
    return true;
}

bool GraphWindow::RunPopupCommand(CommandId command) {
    switch (command) {
        case CommandId::PopupFullScreen:
            ToggleFullScreen();
            return true;
        case CommandId::PopupZoomIn:
            canvas->Apply(ZoomAtOnce(graph, popupPoint, ZoomDirection::In));
            return true;
        case CommandId::PopupZoomOut:
            canvas->Apply(ZoomAtOnce(graph, popupPoint, ZoomDirection::Out));
            return true;
        default:
            return false;
    }
}

void GraphWindow::LeavePick() {
    EnterNormalMode(graph);
    canvas->Apply(PictureChange::Overlay);
}

void GraphWindow::PressLeftKey() {
    if (!MayRun(*this)) return;
    if (canvas->IsComputing()) return canvas->Stop();
    if (graph.mode == GraphMode::Normal) return OpenMenu();
    LeavePick();
}

void GraphWindow::PressRightKey() {
    Run(graph.mode == GraphMode::Trace ? CommandId::Analyze : CommandId::Trace);
}

void GraphWindow::Escape() {
    if (!MayRun(*this)) return;
    if (canvas->IsComputing()) return canvas->Stop();
    if (graph.mode != GraphMode::Normal) return LeavePick();
    if (isFullScreen()) return ToggleFullScreen();
    Run(CommandId::GraphTable);
}

void GraphWindow::ToggleFullScreen() {
    canvas->EndGestures();
    SetFullScreen(*this, !isFullScreen());
}

void GraphWindow::ShowMode() {
    const QString title = ToQString(TitleOf(graph, workspace.functions));
    if (windowTitle() != title) setWindowTitle(title);
    QPushButton& left = *bar->menuButton();
    QPushButton& right = *bar->actionButton();
    const FunctionEntry* const traced = TracedFunction(graph, workspace.functions);
    const bool normal = graph.mode == GraphMode::Normal;
    const bool trace = graph.mode == GraphMode::Trace;
    leftKeyEscapes = !normal;
    left.setText(TextOf(normal ? StringId::MenuKey : StringId::EscapeKey));
    left.setToolTip(TextOf(normal ? StringId::MenuKeyTip : StringId::EscapeKeyTip));
    right.setText(TextOf(trace ? StringId::AnalyzeKey : StringId::TraceKey));
    right.setToolTip(KeysForTip(GraphShortCuts(), trace ? CommandId::Analyze : CommandId::Trace));
    right.setVisible(normal || (trace && traced != nullptr && OffersAnalysis(*traced)));
    right.setEnabled(trace || CanTraceAny(workspace.functions));
}

void GraphWindow::LayOut() {
    layoutTimer.stop();
    const bool full = isFullScreen();
    const int canvasHeight = full ? height() : height() - kBottomBarHeight;
    bar->setVisible(!full);
    canvas->holdOpensPopup = full;
    canvas->setGeometry(0, 0, width(), canvasHeight);
    bar->setGeometry(0, canvasHeight, width(), kBottomBarHeight);
}

void GraphWindow::resizeEvent(QResizeEvent*) {
    LayOut();
}

void GraphWindow::changeEvent(QEvent* event) {
    // The new size arrives a moment later. Laying out at once would compute a picture of the old
    // size.
    if (event->type() == QEvent::WindowStateChange) layoutTimer.start();
    QWidget::changeEvent(event);
}

void GraphWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // `Graph Table` decides what becomes of the window
    Run(CommandId::GraphTable);
}

void GraphWindow::keyPressEvent(QKeyEvent* event) {
    if (event->text() == QChar('#')) {
        if (!event->isAutoRepeat()) Run(CommandId::FullScreen);
        return;
    }
    const GraphKey key{event->key(), event->modifiers(), event->isAutoRepeat()};
    if (IsPickKey(graph, key)) {
        keyGesture = {};
        return canvas->ApplyPick(PickAtCursor(graph));
    }
    const auto change = RunGraphKey(graph, workspace.functions, keyGesture, key);
    if (change) {
        canvas->Apply(*change);
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace kalvex
