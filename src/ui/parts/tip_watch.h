// When a tip is shown.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>

class QMouseEvent;
class QWidget;

namespace kalvex {

/// Shows the tip of a control beside it: when the mouse rests on it, when it gets the focus by a
/// key (after the same delay, so that no tip appears while Tab moves through a dialog), when a pen
/// or a finger is held on it. A hold that showed the tip presses nothing. The tip is the control's
/// `toolTip()`.
class TipWatch final : public QObject {
  public:
    /// Owned by the control.
    explicit TipWatch(QWidget* control);

    /// The field that the control is the caption of: mouse and focus count there too, and the tip
    /// stands beside both.
    void AddField(QWidget* watched);

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    void Show();
    void Focus(QEvent* event);
    void Press(const QMouseEvent& event);
    [[nodiscard]] bool Move(const QMouseEvent& event);
    void Hold();

    QWidget* control;
    QPointer<QWidget> field;
    QTimer focusTimer;
    QTimer holdTimer;
    QPoint pressed;
    bool hovering = false;
    bool heldShown = false;
};

}  // namespace kalvex
