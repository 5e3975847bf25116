// An editor line.
#pragma once

#include <QLineEdit>
#include <QTimer>
#include <functional>

namespace kalvex {

/// How long the pen rests on a line until that toggles its selection.
inline constexpr int kHoldMilliseconds = 400;

/// A text line in a font in which l, 1 and I look different. It holds no blanks: a typed blank is
/// refused with a beep, pasted ones are removed. With `keepsBlanks` (a file path) it accepts any
/// text.
class LineEdit final : public QLineEdit {
    Q_OBJECT
  public:
    explicit LineEdit(QWidget* parent);

    /// Puts a stored text into the line as it is, blanks included.
    void SetStoredText(const QString& text);
    /// Puts a text in place of the selection or at the caret, as one step of undo.
    void InsertText(const QString& inserted);
    /// Pastes the clipboard's text without its blanks, as one step of undo.
    void PasteText();
    /// Where the caret stands, in the line's coordinates.
    [[nodiscard]] QRect CaretPlace() const { return cursorRect(); }
    /// Asks for the popup menu at the caret.
    void AskForPopup();

    bool keepsBlanks = false;
    std::function<void()> beep;  ///< the desktop's own; a test counts the calls instead

  signals:
    void Toggled();              ///< double tap, or the pen held for 400 ms
    void Focused();              ///< the focus has come
    void PopupAsked(QPoint at);  ///< screen position for the popup menu

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void LiftPen();
    void EndUndoStep();

    QTimer holdTimer;
    bool penDown = false;
    bool slid = false;  ///< the pen has moved since it came down
    QPoint pressedAt;
};

}  // namespace kalvex
