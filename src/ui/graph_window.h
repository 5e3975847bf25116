// The window that shows the graph in the editor's place.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "graph/graph.h"
#include "resources/command_ids.h"
#include "workspace/workspace.h"

namespace kalvex {

class BottomBar;
class GraphCanvas;

/// What the window cannot do itself.
struct GraphActions {
    std::function<void()> graphTable;  ///< also the close button
    std::function<void()> picture;     ///< runs when the menu has closed
    std::function<void()> exit;
};

class GraphWindow final : public QWidget {
  public:
    GraphWindow(GraphState& graph, Workspace& workspace, GraphActions given);

    GraphCanvas& Canvas() const { return *canvas; }
    void OpenMenu();
    /// Runs one command; false for one that this window does not have yet.
    bool Run(CommandId command);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    GraphActions actions;
    GraphCanvas* canvas;
    BottomBar* bar;
    QTimer pictureTimer;
};

}  // namespace kalvex
