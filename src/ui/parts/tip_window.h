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
    /// Shows a tip for somebody beside a rectangle of the screen, in the tip window of the dialog
    /// that the control is in.
    static void ShowFor(const QObject* somebody, const QWidget& control, const QRect& place,
                        const QString& tip);
    /// Hides that window when what it shows is for that somebody.
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
