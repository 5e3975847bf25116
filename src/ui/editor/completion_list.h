// The list of function names below a line.
#pragma once

#include <QListWidget>
#include <string_view>
#include <vector>

namespace kalvex {

/// The place of a list of a wanted size: below the line if it fits there, else above the line if it
/// fits there, else on the side with more room and cut to that room. It always lies inside `room`;
/// its left edge is at `left` or as near to it as possible.
[[nodiscard]] QRect PlaceList(const QRect& line, int left, QSize wanted, const QRect& room);

/// A list that never takes the focus. An entry is chosen by selecting it, with the pointer when it
/// is lifted on the entry. Highlighting an entry does not choose it.
class CompletionList final : public QListWidget {
    Q_OBJECT
  public:
    explicit CompletionList(QWidget* window);

    void Fill(const std::vector<std::u16string_view>& names);
    /// The size that shows every name.
    [[nodiscard]] QSize WantedSize() const;
    /// The highlighted row, -1 for none.
    [[nodiscard]] int Highlighted() const;
    void Highlight(int row);

  signals:
    void Chosen(const QString& name);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

}  // namespace kalvex
