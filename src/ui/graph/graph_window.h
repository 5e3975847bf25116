// The window that shows the graph in the editor's place.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "base/message_box.h"
#include "graph/graph_state.h"
#include "resources/command_ids.h"
#include "ui/graph/graph_canvas.h"
#include "workspace/workspace.h"

namespace kalvex {

class BottomBar;

/// What the window cannot do itself.
struct GraphActions {
    std::function<void()> graphTable;     ///< also the close button
    std::function<void()> picture;        ///< runs when the menu has closed
    std::function<void()> savePictureAs;  ///< asks for a file
    std::function<void()> copyPicture;
    std::function<void(const FunctionEntry&)> analyse;  ///< the traced function
    std::function<void()> openOptions;
    std::function<void()> openCalculator;
    std::function<void()> exit;
    std::function<void()> redrawn;  ///< a new picture stands
    ShowMessage show;
};

class GraphWindow final : public QWidget {
  public:
    GraphWindow(GraphState& shownGraph, Workspace& shown, GraphActions given);

    GraphCanvas& Canvas() const { return *canvas; }
    void OpenMenu();
    /// Opens the popup of the full-screen mode at a point of the canvas.
    void OpenPopup(QPoint at);
    /// Runs one command; false for one that this window does not have yet.
    bool Run(CommandId command);
    /// Title and soft keys for the present mode.
    void ShowMode();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    CanvasActions ActionsOfCanvas();
    void AddShortcuts();
    void LayOut();
    void PressLeftKey();
    void PressRightKey();
    /// One step out: of a pick, of the full screen, of the window.
    void Escape();
    void ToggleFullScreen();
    void LeavePick();
    void Analyse();
    bool RunShellCommand(CommandId command);
    bool RunDialogCommand(CommandId command);
    bool RunPopupCommand(CommandId command);

    GraphState& graph;
    Workspace& workspace;
    GraphActions actions;
    GraphCanvas* canvas;
    BottomBar* bar;
    QTimer pictureTimer;  ///< timer 2
    QTimer layoutTimer;   ///< after a change of state whose resize may never come
    PixelPoint popupPoint;
    ZoomGesture keyGesture;
};

}  // namespace kalvex
