// Qt's own tips appear at the mouse pointer, which a key or a finger does not have, and may cover
// the control. This window looks like them and stands beside the control.
#include "ui/parts/tip_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QToolTip>

namespace kalvex {
namespace {

constexpr int kWidest = 288;  // the fields of a dialog
constexpr int kMargin = 6;
constexpr int kDistance = 4;

QSize SizeOf(const QLabel& label, const QRect& screen) {
    const int widest = qMin(kWidest, screen.width() - 2 * kDistance);
    const int oneLine = label.fontMetrics().horizontalAdvance(label.text()) + 2 * kMargin + 4;
    const int width = qMin(widest, oneLine);
    return {width, label.heightForWidth(width)};
}

bool EndsTip(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
        case QEvent::Wheel:
        case QEvent::WindowDeactivate:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

/// The tip window of the dialog that a control is in; null as long as no tip was shown there.
TipWindow* WindowOf(const QWidget& control) {
    return dynamic_cast<TipWindow*>(control.window()->findChild<QLabel*>("tipWindow"));
}

}  // namespace

QRect TipPlace(const QRect& control, const QSize& tip, const QRect& screen) {
    const int below = control.bottom() + 1 + kDistance;
    const int above = control.top() - kDistance - tip.height();
    int top = below;
    if (below + tip.height() > screen.bottom() + 1) top = qMax(above, screen.top());
    const int last = qMax(screen.left(), screen.right() + 1 - tip.width());
    const int left = qBound(screen.left(), control.left(), last);
    return {QPoint(left, top), tip};
}

void TipWindow::ShowFor(const QObject* somebody, const QWidget& control, const QRect& place,
                        const QString& tip) {
    TipWindow* window = WindowOf(control);
    if (window == nullptr) window = new TipWindow(control.window());
    window->shownFor = somebody;
    window->ShowBeside(place, tip);
}

void TipWindow::HideFor(const QObject* somebody, const QWidget& control) {
    TipWindow* const window = WindowOf(control);
    if (window != nullptr && window->shownFor == somebody) window->hide();
}

TipWindow::TipWindow(QWidget* dialog) : QLabel(dialog, Qt::ToolTip) {
    setObjectName("tipWindow");
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(kMargin);
    setFrameShape(QFrame::Box);
    setFont(QToolTip::font());
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setAutoFillBackground(true);
    fallAsleep.setSingleShot(true);
    connect(&fallAsleep, &QTimer::timeout, this, &QWidget::hide);
}

void TipWindow::ShowBeside(const QRect& place, const QString& tip) {
    const QRect screen = parentWidget()->screen()->availableGeometry();
    setText(tip);
    setGeometry(TipPlace(place, SizeOf(*this, screen), screen));
    fallAsleep.start(style()->styleHint(QStyle::SH_ToolTip_FallAsleepDelay, nullptr, this));
    show();
}

bool TipWindow::eventFilter(QObject*, QEvent* event) {
    if (EndsTip(event->type())) hide();
    return false;
}

void TipWindow::showEvent(QShowEvent*) {
    QCoreApplication::instance()->installEventFilter(this);
}

void TipWindow::hideEvent(QHideEvent*) {
    QCoreApplication::instance()->removeEventFilter(this);
    fallAsleep.stop();
    shownFor = nullptr;
}

}  // namespace kalvex
