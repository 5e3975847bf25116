// The list of function names below a line.
#pragma once

#include <QListWidget>
#include <string_view>
#include <vector>

namespace kalvex {

/// Where a list of a wanted size goes: below the line where it fits, else above where it fits, else
/// where there is more room, cut to that; always inside `room`, from `left` or as near as it can
/// be.
QRect PlaceList(const QRect& line, int left, QSize wanted, const QRect& room);

/// A list box that never takes the focus. Choosing an entry is selecting it: with the pointer by
/// lifting it on the entry. Highlighting one does not choose it.
class CompletionList final : public QListWidget {
    Q_OBJECT
  public:
    explicit CompletionList(QWidget* window);

    void Fill(const std::vector<std::u16string_view>& names);
    /// The size that shows every name.
    QSize WantedSize() const;
    /// The highlighted row, -1 for none.
    int Highlighted() const;
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
