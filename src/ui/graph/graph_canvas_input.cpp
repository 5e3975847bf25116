// Mouse, pen, fingers and wheel become calls of the engine, which decides what they mean. One
// finger is a pointer; a second finger makes it a pinch, until the last finger is lifted.
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QStyleHints>
#include <utility>

#include "ui/graph/graph_canvas.h"

namespace kalvex {

void GraphCanvas::Press(QPointF at) {
    Apply(PressPointer(graph, workspace.functions, PixelOf(at)));
    if (!holdOpensPopup || graph.mode != GraphMode::Normal) return;
    holdPending = true;
    holdTimer.start();
}

void GraphCanvas::Move(QPointF at) {
    const PixelPoint pixel = PixelOf(at);
    const PixelPoint from = graph.pointer.pressed;
    const int far = QGuiApplication::styleHints()->startDragDistance();
    const int distance = (QPoint(pixel.x, pixel.y) - QPoint(from.x, from.y)).manhattanLength();
    if (distance >= far) holdPending = false;
    // A hand trembles, so a hold that may still open the popup does not pan.
    if (holdPending) return;
    Apply(MovePointer(graph, workspace.functions, pixel));
}

void GraphCanvas::Lift(QPointF at) {
    holdTimer.stop();
    const bool trembled = std::exchange(holdPending, false);
    const PixelPoint end = trembled ? graph.pointer.pressed : PixelOf(at);
    ApplyPick(LiftPointer(graph, workspace.functions, end));
}

void GraphCanvas::Hold() {
    // A command or another window since the press has ended the pointer's use.
    const bool waits = graph.pointer.use == PointerUse::Pan && holdOpensPopup && isVisible();
    if (!std::exchange(holdPending, false) || gate || !waits) return;
    OpenPopup(QPoint(graph.pointer.last.x, graph.pointer.last.y));
}

void GraphCanvas::OpenPopup(QPoint at) {
    LosePointer();
    emit Held(at);
}

void GraphCanvas::LosePointer() {
    holdPending = false;
    DropPointer(graph);
    Apply(PictureChange::Overlay);
}

void GraphCanvas::EndGestures() {
    holdPending = false;
    wheelGesture = {};
    pinchGesture = {};
    pinch = {};
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
    holdPending = false;
    Apply(
        ZoomStep(graph, wheelGesture, event->position(), ExtentOfSteps(steps), event->modifiers()));
}

void GraphCanvas::contextMenuEvent(QContextMenuEvent* event) {
    if (holdOpensPopup) OpenPopup(event->pos());
}

void GraphCanvas::Pinch(const QTouchEvent& event) {
    holdPending = false;
    touchIgnored = true;
    DropPointer(graph);
    const auto& fingers = event.points();
    Apply(MovePinch(graph, pinchGesture, pinch, fingers[0].position(), fingers[1].position(),
                    event.modifiers()));
}

void GraphCanvas::Touch(const QTouchEvent& event) {
    const auto& fingers = event.points();
    if (event.type() == QEvent::TouchCancel) {
        pinch = {};
        return LosePointer();
    }
    if (event.type() == QEvent::TouchBegin) touchIgnored = false;
    const bool lifted = event.touchPointStates().testFlag(QEventPoint::Released);
    if (fingers.size() >= 2 && !lifted) return Pinch(event);
    pinch = {};
    if (touchIgnored || fingers.isEmpty()) return;
    const QPointF at = fingers.first().position();
    if (event.type() == QEvent::TouchBegin) return Press(at);
    if (event.type() == QEvent::TouchUpdate) return Move(at);
    Lift(at);
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
