// The hint of the sliding gesture over the labels.
#pragma once

#include <QLabel>
#include <QTimer>

namespace kalvex {

/// A line of text over the lower edge of a window. It takes no taps.
class SlideHint final : public QLabel {
  public:
    explicit SlideHint(QWidget* window);

    /// The pen is down: the hint shows when it stays there for a moment.
    void Begin();
    /// The pen slides: the hint shows at once.
    void ShowNow();
    /// The pen is up.
    void End();

    /// Centred on the lower edge of a part of the window.
    void PlaceIn(const QRect& part);

  private:
    QTimer delay;
};

}  // namespace kalvex
