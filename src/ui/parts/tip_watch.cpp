// A filter on the control and its field. The tip window itself goes at the next key or press; what
// is left to do here is to show it, and to hide it when the mouse or the focus has gone elsewhere.
#include "ui/parts/tip_watch.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleHints>
#include <QWidget>

#include "ui/parts/tip_window.h"

namespace kalvex {
namespace {

/// A mouse has hovering: a long press of its button is a slow click, nothing more.
bool IsPenOrFinger(const QMouseEvent& event) {
    return event.source() != Qt::MouseEventNotSynthesized ||
           event.deviceType() == QInputDevice::DeviceType::TouchScreen ||
           event.deviceType() == QInputDevice::DeviceType::Stylus;
}

bool IsByKey(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
           event.reason() == Qt::ShortcutFocusReason;
}

QRect OnScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

}  // namespace

TipWatch::TipWatch(QWidget* watched) : QObject(watched), control(watched) {
    control->installEventFilter(this);
    const int delay = control->style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr, control);
    focusTimer.setSingleShot(true);
    focusTimer.setInterval(delay);
    connect(&focusTimer, &QTimer::timeout, this, &TipWatch::Show);
    holdTimer.setSingleShot(true);
    holdTimer.setInterval(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    connect(&holdTimer, &QTimer::timeout, this, &TipWatch::Hold);
}

void TipWatch::AddField(QWidget* watched) {
    field = watched;
    field->installEventFilter(this);
}

void TipWatch::Show() {
    QRect place = OnScreen(*control);
    if (field) place = place.united(OnScreen(*field));
    TipWindow::ShowFor(this, *control, place, control->toolTip());
}

void TipWatch::Focus(QEvent* event) {
    const bool in = event->type() == QEvent::FocusIn;
    if (in && IsByKey(*static_cast<QFocusEvent*>(event))) {
        focusTimer.start();
    } else {
        focusTimer.stop();
        if (!in) TipWindow::HideFor(this, *control);
    }
}

void TipWatch::Press(const QMouseEvent& event) {
    heldShown = false;
    focusTimer.stop();
    if (event.button() != Qt::LeftButton || !IsPenOrFinger(event)) return;
    pressed = event.position().toPoint();
    holdTimer.start();
}

/// True when the event must not reach the control.
bool TipWatch::Move(const QMouseEvent& event) {
    const int farthest = QGuiApplication::styleHints()->startDragDistance();
    const QPoint way = event.position().toPoint() - pressed;
    if (way.manhattanLength() >= farthest) holdTimer.stop();
    return heldShown;
}

void TipWatch::Hold() {
    heldShown = true;
    hovering = false;
    if (auto* const button = qobject_cast<QAbstractButton*>(control)) button->setDown(false);
    Show();
}

bool TipWatch::eventFilter(QObject* receiver, QEvent* event) {
    switch (event->type()) {
        case QEvent::ToolTip:
            hovering = true;
            Show();
            return true;
        case QEvent::Leave:
            if (hovering) TipWindow::HideFor(this, *control);
            hovering = false;
            return false;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            Focus(event);
            return false;
        case QEvent::KeyPress:
            focusTimer.stop();
            return false;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:  // the second of two quick presses
            if (receiver == control) Press(*static_cast<QMouseEvent*>(event));
            return false;
        case QEvent::MouseMove:
            return receiver == control && Move(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            holdTimer.stop();
            heldShown = false;
            return false;
        default:
            return false;
    }
}

}  // namespace kalvex
