// An editor line.
#pragma once

#include <QLineEdit>
#include <functional>

namespace kalvex {

/// A single line in a face that tells l, 1 and I apart. Blanks are refused: a typed one with a
/// beep, pasted ones are dropped. A line that keeps blanks (a file path) is an ordinary one.
class LineEdit final : public QLineEdit {
  public:
    explicit LineEdit(QWidget* parent);

    /// Puts a stored text into the line as it is, blanks included.
    void SetStoredText(const QString& text);

    bool keepsBlanks = false;
    std::function<void()> beep;
    std::function<void()> toggled;  ///< double click or double tap

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace kalvex
