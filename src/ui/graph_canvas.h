// The picture of the graph on the screen.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "graph/graph.h"
#include "workspace/workspace.h"

namespace kalvex {

class InputGate;

/// Keeps the last computed picture and paints from it; computes a new one only after something
/// that it shows has changed. A slow computation can be stopped (Escape, or any command); the
/// picture then has what was computed until then. Dragging with the left button or the pen pans.
class GraphCanvas final : public QWidget {
  public:
    GraphCanvas(GraphState& shownGraph, Workspace& shown, QWidget* parent);
    ~GraphCanvas() override;

    /// Computes the picture anew as soon as the events that wait have been handled. Any number of
    /// calls until then make one computation.
    void ScheduleRedraw();
    /// The last computed picture; empty before the first.
    const DrawList& Picture() const { return list; }
    /// Whether a picture is being computed: what it shows must not be changed then.
    bool IsComputing() const { return gate != nullptr; }
    /// Ends a computation soon; nothing when there is none.
    void Stop();
    /// How many pictures were computed so far.
    int RedrawCount() const { return redrawCount; }
    /// Columns that the progress bar covers at the moment; 0 while nothing is being computed.
    int ProgressColumns() const { return progress.empty() ? 0 : progress.back().lastColumn + 1; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void Redraw();
    bool ShowProgress(const ProgressStretch& stretch);
    void Describe(bool stopped);

    GraphState& graph;
    Workspace& workspace;
    DrawList list;
    QImage image;
    QTimer redrawTimer;
    bool shownOnce = false;
    std::unique_ptr<InputGate> gate;  ///< while a picture is being computed
    bool redrawAgain = false;
    bool dragging = false;
    QPoint last;
    int redrawCount = 0;
    std::vector<ProgressStretch> progress;
    QElapsedTimer sinceProgress;
};

}  // namespace kalvex
