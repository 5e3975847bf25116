// The hint appears only when the pen rests or slides, so that it does not flicker at a quick tap.
// It covers the soft keys, which nobody needs during the gesture, so that no line is hidden.
#include "ui/editor/slide_hint.h"

#include <algorithm>

#include "resources/strings.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

constexpr int kDelayMilliseconds = 250;
constexpr int kSideMargins = 24;

}  // namespace

SlideHint::SlideHint(QWidget* window) : QLabel(window) {
    setObjectName("slideHint");
    setText(TextOf(StringId::SlideToSelect));
    setAlignment(Qt::AlignCenter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Highlight);
    setForegroundRole(QPalette::HighlightedText);
    hide();
    delay.setSingleShot(true);
    delay.setInterval(kDelayMilliseconds);
    connect(&delay, &QTimer::timeout, this, [this] { ShowNow(); });
}

void SlideHint::Begin() {
    delay.start();
}

void SlideHint::ShowNow() {
    delay.stop();
    raise();
    show();
}

void SlideHint::End() {
    delay.stop();
    hide();
}

void SlideHint::PlaceIn(const QRect& part) {
    const int wide = std::min(part.width(), sizeHint().width() + kSideMargins);
    setGeometry(part.left() + (part.width() - wide) / 2, part.top(), wide, part.height());
}

}  // namespace kalvex
