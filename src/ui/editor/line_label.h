// The label in front of an editor line.
#pragma once

#include <QColor>
#include <QLabel>
#include <optional>

namespace kalvex {

/// Shows the type of a line in its colour; that of a selected line in bold on a dark background
/// with a check mark. `text()` is the label alone.
class LineLabel final : public QLabel {
    Q_OBJECT
  public:
    explicit LineLabel(QWidget* parent);

    /// `color` is absent when labels are not coloured.
    void Show(const QString& label, std::optional<QColor> color, bool isSelected);

    [[nodiscard]] bool selected() const { return isSelectedLine; }
    /// Colours of background and text as they are painted with the present palette.
    [[nodiscard]] QColor Ground() const;
    [[nodiscard]] QColor TextColor() const;

  signals:
    void Toggled();          ///< double click or tap
    void Picked();           ///< the pen is down
    void SlidTo(QPoint at);  ///< it moves while down; screen position
    void Lifted();           ///< it is up again

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    std::optional<QColor> lineColor;
    bool isSelectedLine = false;
};

}  // namespace kalvex
