// The window of a tip.
#pragma once

#include <QLabel>
#include <QRect>
#include <QSize>
#include <QTimer>

namespace kalvex {

/// The place of a tip: below the control, or above it when there is no room below. It is moved
/// along x to stay on the screen. It covers the control only when neither place has room.
[[nodiscard]] QRect TipPlace(const QRect& control, const QSize& tip, const QRect& screen);

/// Shows a tip beside a control until the next key, press or turn of the wheel, or until there was
/// time to read it. One window serves all controls of a dialog.
class TipWindow final : public QLabel {
  public:
    /// Shows a tip beside a rectangle of the screen, in the tip window of the control's dialog.
    /// `somebody` owns the tip that shows.
    static void ShowFor(const QObject* somebody, const QWidget& control, const QRect& place,
                        const QString& tip);
    /// Hides the tip window when the tip that it shows is owned by `somebody`.
    static void HideFor(const QObject* somebody, const QWidget& control);

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    explicit TipWindow(QWidget* dialog);
    void ShowBeside(const QRect& place, const QString& tip);

    const QObject* shownFor = nullptr;
    QTimer fallAsleep;
};

}  // namespace kalvex
