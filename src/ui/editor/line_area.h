// The nine lines, scrolled by whole rows where there is no room for all of them.
#pragma once

#include <QWidget>
#include <array>

#include "ui/editor/line_layout.h"

class QLabel;
class QScrollBar;

namespace kalvex {

class LineEdit;
class LineLabel;

/// Labels, edit lines and hints. They are named "label1", "line1", "hint1" and so on and carry the
/// program's control numbers (2000 and 1000 upward) as the property "controlId".
class LineArea final : public QWidget {
    Q_OBJECT
  public:
    struct Row {
        LineLabel* label = nullptr;
        LineEdit* edit = nullptr;
        QLabel* hint = nullptr;
    };

    explicit LineArea(QWidget* window);

    [[nodiscard]] const Row& At(int slot) const { return rows[static_cast<std::size_t>(slot)]; }
    /// Places the area at the upper left of the window. `height` decides how tall a row is: as tall
    /// as nine rows allow. When fewer than nine fit into `visibleHeight` the scroll bar appears,
    /// and its page is the number that fits; otherwise all nine show and its range is empty.
    void LayOut(int width, int height, int visibleHeight);
    /// Scrolls by the fewest rows that bring a line into view.
    void Reveal(int slot);
    /// The visible line nearest to a height in the area's coordinates.
    [[nodiscard]] int SlotAt(int y) const;

  signals:
    void Scrolled();  ///< other lines show now

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    void AddRow(int slot);
    void Place();

    std::array<Row, kSlotCount> rows;
    std::array<LinePlace, kSlotCount> places;
    QScrollBar* scroll = nullptr;
    int rowHeight = 1;
};

}  // namespace kalvex
