// A list of Qt has a current row and a selection. Keys and pen move the current row, which is
// painted as the highlighted one. The selection changes only when a name is chosen: when the pen is
// lifted, not before, so that no part of the tap reaches the line behind the list.
#include "ui/editor/completion_list.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>

#include "resources/strings.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kControlId = 50;
constexpr int kLeastWidth = 120;
constexpr int kSideMargins = 24;

class RowDelegate final : public QStyledItemDelegate {
  public:
    explicit RowDelegate(CompletionList* shown) : QStyledItemDelegate(shown), list(shown) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize text = QStyledItemDelegate::sizeHint(option, index);
        return {text.width(), std::max(text.height(), kTouchTarget)};
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus;
        option->state.setFlag(QStyle::State_Selected, index.row() == list->Highlighted());
        option->state |= QStyle::State_Active;
    }

  private:
    CompletionList* list;
};

}  // namespace

QRect PlaceList(const QRect& line, int left, QSize wanted, const QRect& room) {
    const int below = std::max(0, room.bottom() - line.bottom());
    const int above = std::max(0, line.top() - room.top());
    const bool under = wanted.height() <= below || (wanted.height() > above && below >= above);
    const int height = std::min(wanted.height(), under ? below : above);
    const int width = std::min(wanted.width(), room.width());
    const int x = std::clamp(left, room.left(), room.left() + room.width() - width);
    return {x, under ? line.bottom() + 1 : line.top() - height, width, height};
}

CompletionList::CompletionList(QWidget* window) : QListWidget(window) {
    setObjectName("completion");
    setProperty("controlId", kControlId);
    setAccessibleName(TextOf(StringId::NamesList));
    setFocusPolicy(Qt::NoFocus);
    setItemDelegate(new RowDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFrameShape(QFrame::Box);
    setUniformItemSizes(true);
    hide();
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        const auto items = selectedItems();
        if (!items.isEmpty()) emit Chosen(items.first()->text());
    });
}

void CompletionList::Fill(const std::vector<std::u16string_view>& names) {
    const QSignalBlocker quiet(this);
    clear();
    for (const std::u16string_view name : names)
        addItem(ToQString(name));
    scrollToTop();
}

QSize CompletionList::WantedSize() const {
    const int frames = 2 * frameWidth();
    const int width = std::max(kLeastWidth, sizeHintForColumn(0) + kSideMargins);
    return {width + frames, count() * std::max(sizeHintForRow(0), kTouchTarget) + frames};
}

int CompletionList::Highlighted() const {
    return currentRow();
}

void CompletionList::Highlight(int row) {
    setCurrentRow(row, QItemSelectionModel::NoUpdate);
    viewport()->update();
}

void CompletionList::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Highlight(row(itemAt(event->pos())));
}

void CompletionList::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) Highlight(row(itemAt(event->pos())));
}

void CompletionList::mouseReleaseEvent(QMouseEvent* event) {
    const int at = row(itemAt(event->pos()));
    if (event->button() == Qt::LeftButton && at >= 0) {
        setCurrentRow(at, QItemSelectionModel::ClearAndSelect);
    }
}

void CompletionList::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void CompletionList::wheelEvent(QWheelEvent* event) {
    QListWidget::wheelEvent(event);
    event->accept();  // at the end of the list the lines behind it must not scroll
}

}  // namespace kalvex
