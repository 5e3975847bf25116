// The picture of the graph on the screen.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "graph/draw_progress.h"
#include "graph/explore_commands.h"
#include "ui/graph/canvas_gestures.h"
#include "workspace/workspace.h"

class QTouchEvent;

namespace kalvex {

class InputGate;

/// What the canvas tells its window.
struct CanvasActions {
    ShowMessage show;
    /// A computation takes long enough to be seen; the stop key is shown until `changed` comes.
    std::function<void()> slow;
    std::function<bool(QPointF)> isStopKey;  ///< whether the stop key is at a point of the screen
    std::function<void()> redrawn;           ///< a new picture stands
    std::function<void()> changed;           ///< mode, cursor or picture may have changed
    std::function<void(QPoint)> held;  ///< a hold that may become a popup, at a point of the canvas
};

/// Keeps the last computed picture and paints from it, with the overlay of the present mode above;
/// computes a new one only after something that it shows has changed. A slow computation can be
/// stopped (Escape, or any command); the picture then has what was computed until then. The left
/// button, the pen and one finger pan or pick; wheel and two fingers zoom.
class GraphCanvas final : public QWidget {
  public:
    GraphCanvas(GraphState& shownGraph, Workspace& shown, CanvasActions given, QWidget* parent);
    ~GraphCanvas() override;

    /// Computes the picture anew as soon as the events that wait have been handled. Any number of
    /// calls until then make one computation.
    void ScheduleRedraw();
    /// Computes at once a picture that is due. False when none stands then that shows the present
    /// state: the canvas was never shown, or a computation is under way.
    bool BringUpToDate();
    /// Forgets the last picture: the next one is of other functions.
    void StartAfresh();
    /// Ends a hold, a pinch and a run of wheel turns: a command has come between.
    void EndGestures();
    /// Brings the screen up to date after a change.
    void Apply(PictureChange change);
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

    bool holdOpensPopup = false;  ///< full screen: a hold without movement calls `held`

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Redraw();
    bool ShowProgress(const ProgressStretch& stretch);
    void Describe();
    void ShowMode();
    void Press(QPointF at);
    void Move(QPointF at);
    void Lift(QPointF at);
    void Hold();
    void OpenPopup(QPoint at);
    void LosePointer();
    void Touch(const QTouchEvent& event);
    void Pinch(const QTouchEvent& event);

    GraphState& graph;
    Workspace& workspace;
    CanvasActions actions;
    DrawList list;
    QImage image;
    QTimer redrawTimer;
    bool shownOnce = false;
    std::unique_ptr<InputGate> gate;  ///< while a picture is being computed
    bool redrawAgain = false;
    bool stopped = false;
    int redrawCount = 0;
    std::vector<ProgressStretch> progress;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceProgress;

    QTimer holdTimer;          ///< timer 1
    bool holdPending = false;  ///< a hold may still become a popup
    WheelRest wheel;
    ZoomGesture wheelGesture;
    QTimer wheelPause;  ///< a pause ends the gesture
    PinchState pinch;
    ZoomGesture pinchGesture;
    bool touchIgnored = false;  ///< after a pinch, until the last finger is lifted
};

}  // namespace kalvex
