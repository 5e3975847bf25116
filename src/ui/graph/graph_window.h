// The window that shows the graph in the editor's place.
#pragma once

#include <QTimer>
#include <QWidget>

#include "graph/graph_state.h"
#include "resources/command_ids.h"
#include "ui/graph/graph_canvas.h"
#include "ui/parts/window_actions.h"
#include "workspace/workspace.h"

namespace kalvex {

class BottomBar;

class GraphWindow final : public QWidget {
  public:
    GraphWindow(GraphState& shownGraph, Workspace& shown, WindowActions given);

    [[nodiscard]] GraphCanvas& Canvas() const { return *canvas; }
    void OpenMenu();
    /// Opens the popup of the full-screen mode at a point of the canvas.
    void OpenPopup(QPoint at);
    /// Runs a command of the graph or of the program; false for a number that is no command, and
    /// while something is open in front of the window.
    bool Run(CommandId command);
    /// Title and soft keys for the present mode.
    void ShowMode();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AddCanvas();
    void AddShortcuts();
    void LayOut();
    void PressLeftKey();
    void PressRightKey();
    /// One step out: of a pick, of the full screen, of the window.
    void Escape();
    void ToggleFullScreen();
    void LeavePick();
    void Analyse();
    /// Stops a computation. The command runs when it has ended, because it may change what is being
    /// drawn.
    void RunAfterComputation(CommandId command);
    [[nodiscard]] bool RunShellCommand(CommandId command);
    [[nodiscard]] bool RunDialogCommand(CommandId command);
    [[nodiscard]] bool RunPopupCommand(CommandId command);

    GraphState& graph;
    Workspace& workspace;
    WindowActions actions;
    GraphCanvas* canvas;
    BottomBar* bar;
    bool leftKeyEscapes = false;  ///< the left key leaves a mode or stops a computation
    QTimer pictureTimer;          ///< timer 2
    QTimer layoutTimer;  ///< after a change of the window's state, which need not resize it
    PixelPoint popupPoint;
    ZoomGesture keyGesture;
};

}  // namespace kalvex
