// Canvas above, soft keys below. A picture is exported a moment after the command, when the menu
// has left the screen.
#include "ui/graph_window.h"

#include <QCloseEvent>
#include <QMenu>
#include <QShortcut>
#include <utility>

#include "ui/bottom_bar.h"
#include "ui/graph_canvas.h"
#include "ui/line_layout.h"
#include "ui/menu_builder.h"
#include "ui/touch.h"

namespace kalvex {
namespace {

constexpr int kPictureDelay = 200;  // milliseconds

/// The commands that this window can run; the others show disabled.
bool CanRun(CommandId command) {
    return command == CommandId::None || command == CommandId::GraphTable ||
           command == CommandId::Picture || command == CommandId::GraphExit;
}

/// A submenu lives while one of its entries does.
bool IsAlive(const MenuEntry& entry) {
    if (entry.children.empty()) return CanRun(entry.id);
    for (const MenuEntry& child : entry.children) {
        if (IsAlive(child)) return true;
    }
    return false;
}

}  // namespace

GraphWindow::GraphWindow(GraphState& graph, Workspace& workspace, GraphActions given)
    : actions(std::move(given)) {
    setWindowTitle("Kalvex");
    setObjectName("graph");
    setMinimumSize(240, LeastLineAreaHeight() + kBottomBarHeight);
    canvas = new GraphCanvas(graph, workspace, this);
    bar = new BottomBar("Trace", this);
    bar->actionButton()->setEnabled(CanRun(CommandId::Trace));
    bar->menuButton()->setToolTip("F10");
    connect(bar->menuButton(), &QPushButton::clicked, this, &GraphWindow::OpenMenu);
    pictureTimer.setSingleShot(true);
    pictureTimer.setInterval(kPictureDelay);
    connect(&pictureTimer, &QTimer::timeout, this, [this] {
        // Its message box could not be answered while the gate is closed.
        if (canvas->IsComputing()) {
            pictureTimer.start();
        } else {
            actions.picture();
        }
    });
    const auto add = [this](const QKeySequence& keys, auto&& run) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, run);
    };
    add(QKeySequence(Qt::Key_F10), [this] { OpenMenu(); });
    add(QKeySequence(Qt::ALT | Qt::Key_M), [this] { OpenMenu(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { Run(CommandId::GraphExit); });
    add(QKeySequence(Qt::CTRL | Qt::Key_P), [this] { Run(CommandId::Picture); });
    add(QKeySequence(Qt::Key_F5), [this] { Run(CommandId::GraphTable); });
    add(QKeySequence(Qt::Key_Escape), [this] { Run(CommandId::GraphTable); });
}

void GraphWindow::OpenMenu() {
    auto* const menu = new QMenu(this);
    menu->setObjectName("graphMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto stateOf = [](const MenuEntry& entry) {
        return MenuItemState{entry.text, IsAlive(entry), false, true};
    };
    FillMenu(*menu, GraphMenu(), stateOf, [this](CommandId command) { Run(command); });
    PopUpAbove(*menu, *bar->menuButton());
}

bool GraphWindow::Run(CommandId command) {
    switch (command) {
        case CommandId::GraphTable:
            actions.graphTable();
            return true;
        case CommandId::Picture:
            pictureTimer.start();
            return true;
        case CommandId::GraphExit:
            actions.exit();
            return true;
        default:
            return false;
    }
}

void GraphWindow::resizeEvent(QResizeEvent*) {
    const int canvasHeight = height() - kBottomBarHeight;
    canvas->setGeometry(0, 0, width(), canvasHeight);
    bar->setGeometry(0, canvasHeight, width(), kBottomBarHeight);
}

void GraphWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // `Graph Table` decides what becomes of the window
    Run(CommandId::GraphTable);
}

}  // namespace kalvex
