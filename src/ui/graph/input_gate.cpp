// Qt delivers input to the native window (QWindow) first and a short cut to its QShortcut, so the
// event filter of the application catches it there. A resize is held back too, because the picture
// that is being computed has the old size. Of several moves in a row only the last is kept.
#include "ui/graph/input_gate.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QTouchEvent>
#include <utility>

namespace kalvex {
namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::NativeGesture:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Close:
        case QEvent::Resize:
            return true;
        default:
            return false;
    }
}

/// Whether a key arrives as a short cut of the window, or as a key press where no short cut has it.
bool IsEscape(const QEvent& event) {
    if (event.type() == QEvent::KeyPress)
        return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
    return event.type() == QEvent::Shortcut &&
           static_cast<const QShortcutEvent&>(event).key() == QKeySequence(Qt::Key_Escape);
}

/// The key of full screen is no short cut, because its place depends on the keyboard.
bool IsFullScreenKey(const QEvent& event) {
    return event.type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent&>(event).text() == QChar('#');
}

/// Whether a person asks for something else than the picture that is being computed.
bool AsksToStop(const QEvent& event) {
    const QEvent::Type type = event.type();
    return type == QEvent::Shortcut || type == QEvent::Close || IsEscape(event) ||
           IsFullScreenKey(event);
}

}  // namespace

InputGate::InputGate(std::function<bool(QPointF)> stopKey) : isStopKey(std::move(stopKey)) {
    QCoreApplication::instance()->installEventFilter(this);
}

InputGate::~InputGate() {
    QCoreApplication::instance()->removeEventFilter(this);
    for (HeldEvent& one : held) {
        if (one.receiver) QCoreApplication::postEvent(one.receiver, one.event.release());
    }
}

void InputGate::Poll() {
    QCoreApplication::processEvents();
}

bool InputGate::eventFilter(QObject* receiver, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool command = type == QEvent::Shortcut;
    if (!command && !(receiver->isWindowType() && IsInput(type))) return false;
    if (AsksToStop(*event)) stopped = true;
    if (type == QEvent::Resize) resized = true;
    if (type == QEvent::Close) event->ignore();
    if (PressesStopKey(*event)) {
        stopped = true;
        return true;
    }
    if (!IsEscape(*event)) Hold(receiver, *event);
    return true;
}

bool InputGate::PressesStopKey(const QEvent& event) const {
    if (event.type() == QEvent::MouseButtonPress)
        return isStopKey(static_cast<const QMouseEvent&>(event).globalPosition());
    if (event.type() != QEvent::TouchBegin) return false;
    const auto& fingers = static_cast<const QTouchEvent&>(event).points();
    return !fingers.isEmpty() && isStopKey(fingers.first().globalPosition());
}

void InputGate::Hold(QObject* receiver, const QEvent& event) {
    std::unique_ptr<QEvent> copy(event.clone());
    const bool replaces = event.type() == QEvent::MouseMove && !held.empty() &&
                          held.back().receiver == receiver &&
                          held.back().event->type() == QEvent::MouseMove;
    if (replaces) held.pop_back();
    held.push_back({receiver, std::move(copy)});
}

}  // namespace kalvex
