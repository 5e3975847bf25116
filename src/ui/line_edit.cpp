// Every way into the line (keys, input methods, pasting, dropping) ends in the line's validator,
// so that is where blanks are dropped; only the beep for a typed blank needs the key itself.
#include "ui/line_edit.h"

#include <QApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QValidator>

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

}  // namespace

LineEdit::LineEdit(QWidget* parent) : QLineEdit(parent) {
    setFont(LineFont(font()));
    setTextMargins(4, 0, 4, 0);
    setValidator(new BlankFilter(this));
    setInputMethodHints(Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText);
    beep = [] { QApplication::beep(); };
}

void LineEdit::SetStoredText(const QString& stored) {
    const bool kept = keepsBlanks;
    keepsBlanks = true;
    setText(stored);
    keepsBlanks = kept;
}

void LineEdit::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!keepsBlanks && event->key() == Qt::Key_Space && plain) {
        beep();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void LineEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && toggled) {
        toggled();
        return;
    }
    QLineEdit::mouseDoubleClickEvent(event);
}

}  // namespace kalvex
