// The toolkit's own tips stand under the mouse pointer, which a key or a finger does not have, and
// over the control. This one looks the same and stands beside the control, whoever asks for it.
#include "ui/tip_window.h"

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

TipWindow* TipWindow::Of(const QWidget* control) {
    QWidget* const dialog = control->window();
    auto* window = dynamic_cast<TipWindow*>(dialog->findChild<QLabel*>("tipWindow"));
    return window != nullptr ? window : new TipWindow(dialog);
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

void TipWindow::ShowBeside(const QRect& control, const QString& tip, const QObject* somebody) {
    const QRect screen = parentWidget()->screen()->availableGeometry();
    shownFor = somebody;
    setText(tip);
    setGeometry(TipPlace(control, SizeOf(*this, screen), screen));
    fallAsleep.start(style()->styleHint(QStyle::SH_ToolTip_FallAsleepDelay, nullptr, this));
    show();
}

void TipWindow::HideFor(const QObject* somebody) {
    if (shownFor == somebody) hide();
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
