// The picture of the graph on the screen.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "base/flow.h"
#include "graph/draw_progress.h"
#include "graph/explore_commands.h"
#include "ui/graph/canvas_gestures.h"
#include "ui/graph/pulse.h"
#include "workspace/workspace.h"

class QTouchEvent;

namespace kalvex {

class InputGate;
class PictureNote;

/// Whether the key that stops a computation is at a point of the screen.
using IsStopKey = std::function<bool(QPointF)>;

/// Keeps the last computed picture and paints from it, with the overlay of the present mode above;
/// computes a new one only after something that it shows has changed. A slow computation can be
/// stopped (Escape, or any command); the picture then has what was computed until then. The left
/// button, the pen and one finger pan or pick; wheel and two fingers zoom.
class GraphCanvas final : public QWidget {
    Q_OBJECT
  public:
    /// `stopKey` is a function, because the canvas needs its answer.
    GraphCanvas(GraphState& shownGraph, Workspace& shown, IsStopKey stopKey, ShowBox show,
                QWidget* parent);
    ~GraphCanvas() override;

    /// Computes the picture again after the waiting events have been handled. Any number of calls
    /// until then cause one computation.
    void ScheduleRedraw();
    /// Computes a picture that is due at once. False when the picture does not show the present
    /// state afterwards, because the canvas was never shown or is computing.
    [[nodiscard]] bool BringUpToDate();
    /// Forgets the last picture, because the next one shows other functions.
    void StartAfresh();
    /// Ends a hold, a pinch and a series of wheel turns, because a command interrupts them.
    void EndGestures();
    /// Shows a note over the picture for some seconds or until the next key or click. Those who
    /// hear the picture hear it first.
    void ShowNote(const QString& text);
    /// Brings the screen up to date after a change.
    void Apply(PictureChange change);
    /// Does so after a pick; one that was refused ends when its box has been answered.
    void ApplyPick(const PickResult& picked);
    /// The last computed picture; empty before the first.
    [[nodiscard]] const DrawList& Picture() const { return list; }
    /// Whether a picture is being computed: what it shows must not be changed then.
    [[nodiscard]] bool IsComputing() const { return gate != nullptr; }
    /// Makes a running computation end soon. Without one it does nothing.
    void Stop();
    /// How many pictures were computed so far.
    [[nodiscard]] int RedrawCount() const { return redrawCount; }
    /// Columns that the progress bar covers at the moment; 0 while nothing is being computed.
    [[nodiscard]] int ProgressColumns() const {
        return progress.empty() ? 0 : progress.back().lastColumn + 1;
    }

    bool holdOpensPopup = false;  ///< full screen: a hold without movement emits Held

  signals:
    /// A computation takes long enough to be seen; the stop key is shown until Changed comes.
    void Slow();
    void Redrawn();        ///< a new picture has been computed
    void Changed();        ///< mode, cursor or picture may have changed
    void Held(QPoint at);  ///< a hold that may become a popup, at a point of the canvas

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
    void Compute();
    void NoteTime(qint64 milliseconds);
    void GiveUp();
    [[nodiscard]] bool AddProgress(const ProgressStretch& stretch);
    [[nodiscard]] bool Breathe();
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
    IsStopKey isStopKey;
    ShowBox showBox;
    DrawList list;
    QImage image;
    PictureNote* note;
    QTimer redrawTimer;
    bool shownOnce = false;
    std::unique_ptr<InputGate> gate;  ///< while a picture is being computed
    Pulse pulse;                      ///< started while a picture is being computed
    bool redrawAgain = false;
    int redrawCount = 0;
    std::vector<ProgressStretch> progress;
    QElapsedTimer sinceStart;
    bool contoursAreSlow = false;  ///< the last whole picture with contours held up a drag
    QTimer rest;                   ///< a drag that pauses gets its whole picture

    QTimer holdTimer;          ///< timer 1
    bool holdPending = false;  ///< the hold may still open the popup
    WheelRest wheel;
    ZoomGesture wheelGesture;
    QTimer wheelPause;  ///< a pause ends the gesture
    PinchState pinch;
    ZoomGesture pinchGesture;
    bool touchIgnored = false;  ///< after a pinch, until the last finger is lifted
};

}  // namespace kalvex
