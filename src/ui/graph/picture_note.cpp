// It watches the input of the whole program only while it is shown. It is a widget above the
// picture and no part of it, so that neither files nor the printer ever get it.
#include "ui/graph/picture_note.h"

#include <QCoreApplication>
#include <QEvent>

#include "ui/parts/message_window.h"

namespace kalvex {
namespace {

constexpr int kShown = 8000;  // milliseconds
constexpr int kPadding = 8;
constexpr int kGap = 8;

bool IsInput(QEvent::Type type) {
    return type == QEvent::ShortcutOverride || type == QEvent::KeyPress ||
           type == QEvent::MouseButtonPress || type == QEvent::TouchBegin ||
           type == QEvent::TabletPress || type == QEvent::Wheel;
}

}  // namespace

PictureNote::PictureNote(QWidget* over) : QLabel(over) {
    setObjectName("pictureNote");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(kPadding);
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    // The picture below is white with any theme of the desktop.
    QPalette colours;
    colours.setColor(QPalette::Window, Qt::white);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    hide();
    rest.setSingleShot(true);
    rest.setInterval(kShown);
    connect(&rest, &QTimer::timeout, this, &PictureNote::End);
}

void PictureNote::ShowText(const QString& text) {
    setText(ShowableText(text));
    setAccessibleName(text);
    Place();
    raise();
    show();
    QCoreApplication::instance()->installEventFilter(this);
    rest.start();
}

void PictureNote::End() {
    if (isHidden()) return;
    rest.stop();
    QCoreApplication::instance()->removeEventFilter(this);
    hide();
}

void PictureNote::Place() {
    const QSize room = parentWidget()->size();
    const int edge = kPadding + frameWidth();
    const QRect most(0, 0, qMax(room.width() - 2 * (kGap + edge), 1), room.height());
    const QRect wrapped = fontMetrics().boundingRect(most, Qt::TextWordWrap, text());
    const int width = qMin(wrapped.width() + 2 * edge, room.width());
    const int height = qMin(wrapped.height() + 2 * edge, room.height());
    setGeometry((room.width() - width) / 2, qMax(room.height() - height - kGap, 0), width, height);
}

bool PictureNote::eventFilter(QObject* receiver, QEvent* event) {
    if (IsInput(event->type())) End();
    if (event->type() == QEvent::Resize && receiver == parentWidget()) Place();
    return false;
}

}  // namespace kalvex
