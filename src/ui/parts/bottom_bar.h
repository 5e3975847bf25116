// The bar at the foot of every window: two large flat buttons, the soft keys.
#pragma once

#include <QPushButton>
#include <QString>
#include <QWidget>

class QMenu;

namespace kalvex {

/// "Menu" (or another word) to the left, the window's action to the right. A tap on a key never
/// takes the keyboard focus, so the line being edited stays the current one.
class BottomBar final : public QWidget {
  public:
    BottomBar(const QString& leftText, const QString& actionText, QWidget* parent);

    /// A third, narrower key between the two.
    [[nodiscard]] QPushButton* AddMiddleKey(const QString& text, const char* name);

    [[nodiscard]] QPushButton* menuButton() const { return menu; }
    [[nodiscard]] QPushButton* actionButton() const { return action; }
    /// Leaves the left key alone, over the whole width.
    void ShowOneKey();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPushButton* menu;
    QPushButton* action;
};

/// Shows a menu above a button of the bar.
void PopUpAbove(QMenu& menu, const QWidget& button);

}  // namespace kalvex
