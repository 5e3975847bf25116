// Every text that enters the line (by keys, input methods, pasting or dropping) passes the
// validator, which removes the blanks; the key handler only adds the beep. When the validator
// changes a text, Qt forgets the undo steps, so pasting removes the blanks itself beforehand. A pen
// that moves farther than the platform's drag distance selects text and no longer counts as held.
#include "ui/editor/line_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyleHints>
#include <QValidator>
#include <algorithm>

namespace kalvex {
namespace {

class BlankFilter final : public QValidator {
  public:
    explicit BlankFilter(LineEdit* line) : QValidator(line), edit(line) {}

    State validate(QString& text, int& caret) const override {
        if (edit->keepsBlanks) return Acceptable;
        QString kept;
        int keptCaret = caret;
        for (int i = 0; i < text.size(); ++i) {
            if (!text.at(i).isSpace()) {
                kept += text.at(i);
            } else if (i < caret) {
                --keptCaret;
            }
        }
        if (kept.size() != text.size()) {
            text = kept;
            caret = keptCaret;
        }
        return Acceptable;
    }

  private:
    LineEdit* edit;
};

QFont LineFont(const QFont& system) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies({"DejaVu Sans Mono", "Menlo", "Consolas", "Liberation Mono", font.family()});
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(system.pointSizeF() * 1.3);
    return font;
}

bool HoldsBlank(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

}  // namespace

LineEdit::LineEdit(QWidget* parent) : QLineEdit(parent) {
    setFont(LineFont(font()));
    setTextMargins(4, 0, 4, 0);
    setValidator(new BlankFilter(this));
    setInputMethodHints(Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText);
    beep = [] { QApplication::beep(); };
    holdTimer.setSingleShot(true);
    holdTimer.setInterval(kHoldMilliseconds);
    connect(&holdTimer, &QTimer::timeout, this, [this] {
        if (penDown) emit Toggled();
    });
}

void LineEdit::SetStoredText(const QString& stored) {
    const bool kept = keepsBlanks;
    keepsBlanks = true;
    setText(stored);
    keepsBlanks = kept;
}

/// Qt joins edits into one undo step until the caret moves, so the caret moves away and back.
void LineEdit::EndUndoStep() {
    const int caret = cursorPosition();
    setCursorPosition(caret > 0 ? caret - 1 : 1);
    setCursorPosition(caret);
}

void LineEdit::InsertText(const QString& inserted) {
    if (!hasSelectedText()) EndUndoStep();
    insert(inserted);
    EndUndoStep();
}

void LineEdit::PasteText() {
    if (keepsBlanks) return paste();
    QString text = QGuiApplication::clipboard()->text();
    text.removeIf([](QChar c) { return c.isSpace(); });
    if (!text.isEmpty()) InsertText(text);
}

void LineEdit::AskForPopup() {
    emit PopupAsked(mapToGlobal(QPoint(cursorRect().left(), height())));
}

void LineEdit::LiftPen() {
    penDown = false;
    holdTimer.stop();
}

void LineEdit::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!keepsBlanks && event->key() == Qt::Key_Space && plain) {
        beep();
        event->accept();
    } else if (event->matches(QKeySequence::Paste)) {
        PasteText();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void LineEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (!keepsBlanks && HoldsBlank(event->commitString())) beep();
    QLineEdit::inputMethodEvent(event);
}

void LineEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        penDown = true;
        slid = false;
        pressedAt = event->pos();
        holdTimer.start();
    }
    QLineEdit::mousePressEvent(event);
}

void LineEdit::mouseMoveEvent(QMouseEvent* event) {
    if (!penDown) return;
    const int far = QGuiApplication::styleHints()->startDragDistance();
    if (!slid && (event->pos() - pressedAt).manhattanLength() < far) return;
    slid = true;
    holdTimer.stop();
    QLineEdit::mouseMoveEvent(event);
}

void LineEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) LiftPen();
    QLineEdit::mouseReleaseEvent(event);
}

void LineEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return QLineEdit::mouseDoubleClickEvent(event);
    LiftPen();
    emit Toggled();
}

void LineEdit::contextMenuEvent(QContextMenuEvent* event) {
    LiftPen();
    setFocus(Qt::OtherFocusReason);
    if (event->reason() == QContextMenuEvent::Keyboard) return AskForPopup();
    emit PopupAsked(event->globalPos());
}

void LineEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    emit Focused();
}

void LineEdit::focusOutEvent(QFocusEvent* event) {
    LiftPen();
    QLineEdit::focusOutEvent(event);
}

void LineEdit::hideEvent(QHideEvent* event) {
    LiftPen();
    QLineEdit::hideEvent(event);
}

}  // namespace kalvex
