// A short note over the graph, for example where a picture was saved.
#pragma once

#include <QLabel>
#include <QTimer>

namespace kalvex {

/// Lies over the lower edge of a widget for some seconds, or until the next key, click or tap
/// anywhere in the program. It takes no input itself.
class PictureNote final : public QLabel {
  public:
    explicit PictureNote(QWidget* over);

    void ShowText(const QString& text);

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    void End();
    void Place();

    QTimer rest;  ///< how long it is still shown
};

}  // namespace kalvex
