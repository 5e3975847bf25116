// A timer of no length runs after all waiting input, so drags and resizes that arrive while a slow
// picture is being computed end in one more computation, not in many. The first computation waits
// for the first paint: the window stands, white, and the progress bar of an implicit curve is seen
// growing on it. Between two steps of the bar waiting events are handled behind a gate that holds
// all input back, so the window repaints and a key can stop the computation, but nothing changes
// what is being drawn and no second computation starts inside the first. What mouse, pen and
// fingers mean is decided by the engine; here they are only brought to one form.
#include "ui/graph_canvas.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointingDevice>
#include <QStyleHints>
#include <cmath>
#include <utility>

#include "painter/painter.h"
#include "ui/input_gate.h"
#include "ui/overlay_painter.h"
#include "ui/qt_text.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

constexpr int kProgressInterval = 15;  // milliseconds: about a frame of the screen
constexpr int kSlow = 300;             // milliseconds until the stop key shows: no flicker
constexpr int kProgressRows = 4;
constexpr int kGesturePause =
    400;  // milliseconds without the wheel: the next turn is a new gesture

PixelPoint PixelAt(QPointF point) {
    return {static_cast<std::int32_t>(std::floor(point.x())),
            static_cast<std::int32_t>(std::floor(point.y()))};
}

}  // namespace

GraphCanvas::GraphCanvas(GraphState& shownGraph, Workspace& shown, CanvasActions given,
                         QWidget* parent)
    : QWidget(parent), graph(shownGraph), workspace(shown), actions(std::move(given)) {
    setObjectName("canvas");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAccessibleName("Graph");
    redrawTimer.setSingleShot(true);
    redrawTimer.setInterval(0);
    connect(&redrawTimer, &QTimer::timeout, this, &GraphCanvas::Redraw);
    holdTimer.setSingleShot(true);
    holdTimer.setInterval(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    connect(&holdTimer, &QTimer::timeout, this, &GraphCanvas::Hold);
    wheelPause.setSingleShot(true);
    wheelPause.setInterval(kGesturePause);
    connect(&wheelPause, &QTimer::timeout, this, [this] { wheelGesture = {}; });
}

GraphCanvas::~GraphCanvas() = default;

void GraphCanvas::Stop() {
    if (gate) gate->Stop();
}

void GraphCanvas::ScheduleRedraw() {
    if (shownOnce) redrawTimer.start();
}

void GraphCanvas::Apply(PictureChange change) {
    if (change == PictureChange::Curves) ScheduleRedraw();
    if (change == PictureChange::Overlay) update();
    ShowMode();
}

void GraphCanvas::ShowMode() {
    const bool picks = graph.mode == GraphMode::Box || graph.mode == GraphMode::Centre;
    if (graph.pointer.use == PointerUse::Pan) {
        setCursor(Qt::ClosedHandCursor);
    } else if (picks) {
        setCursor(Qt::CrossCursor);
    } else {
        unsetCursor();
    }
    Describe();
    actions.changed();
}

void GraphCanvas::Redraw() {
    if (gate) {
        redrawAgain = true;
        return;
    }
    gate = std::make_unique<InputGate>(actions.isStopKey);
    LayoutViewport(graph.viewport, width(), height());
    progress.clear();
    sinceStart.start();
    sinceProgress.start();
    list = DrawGraph(graph, workspace.functions, workspace.options, PainterTextMeasure(),
                     [this](const ProgressStretch& stretch) { return ShowProgress(stretch); });
    stopped = gate->Stopped();
    gate.reset();
    progress.clear();
    image = PaintPicture(list, devicePixelRatioF());
    ++redrawCount;
    update();
    ShowMode();
    actions.redrawn();
    if (std::exchange(redrawAgain, false)) redrawTimer.start();
}

bool GraphCanvas::ShowProgress(const ProgressStretch& stretch) {
    progress.push_back(stretch);
    if (sinceProgress.elapsed() >= kProgressInterval) {
        if (sinceStart.elapsed() >= kSlow) actions.slow();
        repaint(0, 0, width(), kProgressRows);
        gate->Poll();
        sinceProgress.start();
    }
    return !gate->Stopped();
}

void GraphCanvas::Describe() {
    QStringList drawn;
    for (const FunctionEntry& entry : workspace.functions) {
        if (entry.selected != 1) continue;
        drawn += (ToQString(LabelOf(entry.type)) + ToQString(entry.text)).trimmed();
    }
    const ViewWindow& view = graph.viewport.view;
    const QString bounds = QString("x %1 to %2, y %3 to %4")
                               .arg(view.Xmin)
                               .arg(view.Xmax)
                               .arg(view.Ymin)
                               .arg(view.Ymax);
    QStringList parts = {drawn.join("; "), bounds};
    for (const std::u16string& text :
         OverlayOf(graph, workspace.functions, workspace.options).texts) {
        parts += ToQString(text);
    }
    if (stopped) parts += "Stopped";
    setAccessibleDescription(parts.join(". "));
}

void GraphCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool covers = !image.isNull() && image.deviceIndependentSize().toSize() == size();
    if (!covers) painter.fillRect(rect(), Qt::white);
    if (!image.isNull()) painter.drawImage(0, 0, image);
    for (const ProgressStretch& stretch : progress) {
        painter.fillRect(stretch.firstColumn, 0, stretch.lastColumn - stretch.firstColumn + 1,
                         kProgressRows, ToQColor(stretch.color));
    }
    if (graph.mode != GraphMode::Normal) {
        PaintOverlay(painter, OverlayOf(graph, workspace.functions, workspace.options), size(),
                     TextHeightOf(workspace.options));
    }
    const bool otherScreen = !image.isNull() && image.devicePixelRatio() != devicePixelRatioF();
    if (shownOnce && !otherScreen) return;
    shownOnce = true;
    redrawTimer.start();
}

void GraphCanvas::resizeEvent(QResizeEvent*) {
    LayoutViewport(graph.viewport, width(), height());
    ScheduleRedraw();
}

void GraphCanvas::Press(QPointF at) {
    Apply(PressPointer(graph, workspace.functions, PixelAt(at)));
    if (!holdOpensPopup || graph.mode != GraphMode::Normal) return;
    holdPending = true;
    holdTimer.start();
}

void GraphCanvas::Move(QPointF at) {
    const PixelPoint pixel = PixelAt(at);
    const PixelPoint from = graph.pointer.pressed;
    const int far = QGuiApplication::styleHints()->startDragDistance();
    const int distance = (QPoint(pixel.x, pixel.y) - QPoint(from.x, from.y)).manhattanLength();
    if (distance >= far) holdPending = false;
    // The hand trembles: a hold that may become a popup does not pan.
    if (holdPending) return;
    Apply(MovePointer(graph, workspace.functions, pixel));
}

void GraphCanvas::Lift(QPointF at) {
    holdTimer.stop();
    const bool trembled = std::exchange(holdPending, false);
    const PixelPoint end = trembled ? graph.pointer.pressed : PixelAt(at);
    Apply(LiftPointer(graph, workspace.functions, end, actions.show));
}

void GraphCanvas::Hold() {
    if (!std::exchange(holdPending, false) || gate) return;
    const QPoint at(graph.pointer.last.x, graph.pointer.last.y);
    DropPointer(graph);
    ShowMode();
    actions.held(at);
}

void GraphCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Press(event->position());
}

void GraphCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) Move(event->position());
}

void GraphCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Lift(event->position());
}

void GraphCanvas::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const int steps = TakeWheelSteps(wheel, turned.y() != 0 ? turned.y() : turned.x());
    wheelPause.start();
    if (steps == 0) return;
    Apply(
        ZoomStep(graph, wheelGesture, event->position(), ExtentOfSteps(steps), event->modifiers()));
}

void GraphCanvas::contextMenuEvent(QContextMenuEvent* event) {
    if (!holdOpensPopup) return;
    DropPointer(graph);
    holdPending = false;
    actions.held(event->pos());
}

void GraphCanvas::Touch(const QTouchEvent& event) {
    const auto& fingers = event.points();
    const bool over = event.type() == QEvent::TouchEnd || event.type() == QEvent::TouchCancel;
    if (event.type() == QEvent::TouchBegin) touchIgnored = false;
    const bool lifted = event.touchPointStates().testFlag(QEventPoint::Released);
    if (fingers.size() >= 2 && !over && !lifted) {
        holdPending = false;
        touchIgnored = true;
        DropPointer(graph);
        Apply(MovePinch(graph, pinchGesture, pinch, fingers[0].position(), fingers[1].position(),
                        event.modifiers()));
    } else {
        pinch = {};
    }
    if (touchIgnored || fingers.isEmpty()) return;
    const QPointF at = fingers.first().position();
    if (event.type() == QEvent::TouchBegin) return Press(at);
    if (event.type() == QEvent::TouchUpdate) return Move(at);
    if (event.type() == QEvent::TouchEnd) return Lift(at);
    DropPointer(graph);
}

bool GraphCanvas::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel: {
            const auto& touch = static_cast<const QTouchEvent&>(*event);
            if (touch.device()->type() != QInputDevice::DeviceType::TouchScreen) break;
            Touch(touch);
            event->accept();
            return true;
        }
        case QEvent::NativeGesture: {
            const auto& gesture = static_cast<const QNativeGestureEvent&>(*event);
            if (gesture.gestureType() == Qt::BeginNativeGesture) pinchGesture = {};
            if (gesture.gestureType() != Qt::ZoomNativeGesture) break;
            Apply(ZoomStep(graph, pinchGesture, gesture.position(),
                           1.0 / qMax(0.1, 1.0 + gesture.value()), gesture.modifiers()));
            return true;
        }
        default:
            break;
    }
    return QWidget::event(event);
}

}  // namespace kalvex
