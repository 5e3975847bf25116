// The window of a tip.
#pragma once

#include <QLabel>
#include <QRect>
#include <QSize>
#include <QTimer>

namespace kalvex {

/// Where a tip stands: under what it explains, above it where there is no room below. Inside the
/// screen along x; it never covers the control unless neither place has room for it.
QRect TipPlace(const QRect& control, const QSize& tip, const QRect& screen);

/// Stands beside a control until the next key, press or turn of the wheel anywhere, or until it has
/// been there long enough to be read. One serves all controls of a dialog.
class TipWindow final : public QLabel {
  public:
    /// The tip window of the dialog that a control is in; made when it is asked for first.
    static TipWindow* Of(const QWidget* control);

    /// Shows a tip for somebody beside a rectangle of the screen.
    void ShowBeside(const QRect& control, const QString& tip, const QObject* somebody);
    /// Hides it when it is shown for that somebody.
    void HideFor(const QObject* somebody);

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    explicit TipWindow(QWidget* dialog);

    const QObject* shownFor = nullptr;
    QTimer fallAsleep;
};

}  // namespace kalvex
