// The picture of the graph on the screen.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <vector>

#include "graph/graph.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Keeps the last computed picture and paints from it; computes a new one only after something
/// that it shows has changed. Dragging with the left button or the pen pans.
class GraphCanvas final : public QWidget {
  public:
    GraphCanvas(GraphState& shownGraph, Workspace& shown, QWidget* parent);

    /// Computes the picture anew as soon as the events that wait have been handled. Any number of
    /// calls until then make one computation.
    void ScheduleRedraw();
    /// The last computed picture; empty before the first.
    const DrawList& Picture() const { return list; }
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
    void ShowProgress(const ProgressStretch& stretch);
    void Describe();

    GraphState& graph;
    Workspace& workspace;
    DrawList list;
    QImage image;
    QTimer redrawTimer;
    bool shownOnce = false;
    bool dragging = false;
    QPoint last;
    int redrawCount = 0;
    std::vector<ProgressStretch> progress;
    QElapsedTimer sinceProgress;
};

}  // namespace kalvex
