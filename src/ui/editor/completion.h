// Offers function names while an expression is typed into a line.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <string_view>

#include "resources/platform.h"
#include "ui/editor/completion_list.h"
#include "ui/editor/line_edit.h"

class QKeyEvent;

namespace kalvex {

/// Watches lines and keeps at most one list open in a window. A typed letter opens it with the
/// names that begin with the word before the caret. Any other character, the pen on a line, a
/// moved caret and the loss of the focus close it; Enter and the refused blank do not. Down and Up
/// highlight, Enter takes the highlighted name, Escape closes.
class Completion final : public QObject {
    Q_OBJECT
  public:
    explicit Completion(QWidget* window);

    void Watch(LineEdit* line);
    void Close();
    [[nodiscard]] bool IsOpen() const { return line != nullptr; }
    /// What a screen reader says about the list of a line; empty when no list is open for it.
    [[nodiscard]] QString SaidOf(const LineEdit* asked) const {
        return asked == line ? said : QString();
    }

    std::u16string_view platform = kPlatformType;  ///< only kPocketPc offers names
    std::function<QRect()> room;  ///< asked for the part of the window for the list

  signals:
    void Told();  ///< the result of SaidOf has changed

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Open(LineEdit* edited);
    void Type(char16_t last);
    [[nodiscard]] bool TakeKey(const QKeyEvent& key);
    void MoveHighlight(int step);
    void Choose(const QString& name);
    [[nodiscard]] bool TakeSecondTap();

    QPointer<CompletionList> list;
    void Say(const QString& text);

    LineEdit* line = nullptr;  ///< the line with the open list
    QString said;
    int wordLength = 0;
    QString shownFor;  ///< text and caret of the line while the list is open
    int caret = 0;
    QPointer<LineEdit> tapped;  ///< a tap has just chosen a name for this line
    bool letterTyped = false;   ///< the key press that is being handled types a letter
};

}  // namespace kalvex
