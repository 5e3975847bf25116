// All nine rows always exist and can have the focus. A row that is scrolled away lies outside this
// widget, which clips it. The value of the scroll bar is the index of the first visible row.
#include "ui/editor/line_area.h"

#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "resources/strings.h"
#include "ui/editor/line_edit.h"
#include "ui/editor/line_label.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kFirstEditId = 1000;
constexpr int kFirstLabelId = 2000;

/// Makes lines and hints narrower by the width of the scroll bar; the labels stay as they are.
void MakeRoomForScrollBar(std::array<LinePlace, kSlotCount>& places) {
    for (LinePlace& place : places) {
        place.edit.setWidth(std::max(0, place.edit.width() - kTouchTarget));
        place.hint.setWidth(std::max(0, place.hint.width() - kTouchTarget));
    }
}

}  // namespace

LineArea::LineArea(QWidget* window) : QWidget(window) {
    for (int slot = 0; slot < kSlotCount; ++slot)
        AddRow(slot);
    scroll = new QScrollBar(Qt::Vertical, this);
    scroll->setObjectName("lineScroll");
    scroll->setAccessibleName(TextOf(StringId::LinesScroll));
    scroll->setSingleStep(1);
    scroll->setRange(0, 0);
    scroll->hide();
    connect(scroll, &QScrollBar::valueChanged, this, [this] {
        Place();
        emit Scrolled();
    });
}

void LineArea::AddRow(int slot) {
    Row& row = rows[static_cast<std::size_t>(slot)];
    const QString number = QString::number(slot + 1);
    row.label = new LineLabel(this);
    row.label->setObjectName("label" + number);
    row.label->setProperty("controlId", kFirstLabelId + slot);
    row.edit = new LineEdit(this);
    row.edit->setObjectName("line" + number);
    row.edit->setProperty("controlId", kFirstEditId + slot);
    row.label->setBuddy(row.edit);
    row.hint = new QLabel(this);
    row.hint->setObjectName("hint" + number);
    QFont small = row.hint->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    row.hint->setFont(small);
}

void LineArea::LayOut(int width, int height, int visibleHeight) {
    rowHeight = RowHeight(height);
    const int fitting = FittingLines(visibleHeight, rowHeight);
    const bool scrolls = fitting < kSlotCount;
    const int shown = scrolls ? HeightOfLines(fitting, rowHeight) : visibleHeight;
    setGeometry(0, 0, width, std::min(shown, visibleHeight));
    places = LayOutLines(width, height);
    if (scrolls) MakeRoomForScrollBar(places);
    scroll->setGeometry(width - kTouchTarget, 0, kTouchTarget, this->height());
    scroll->setPageStep(fitting);
    scroll->setRange(0, kSlotCount - fitting);
    scroll->setVisible(scrolls);
    Place();
}

void LineArea::Place() {
    const int first = scroll->value();
    const int up = HeightOfLines(first, rowHeight) - HeightOfLines(0, rowHeight);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        // Rows overlap by a pixel, so a row above the first visible one is moved up by one row
        // more.
        const QPoint by(0, slot < first ? -up - rowHeight : -up);
        const LinePlace& place = places[static_cast<std::size_t>(slot)];
        At(slot).label->setGeometry(place.label.translated(by));
        At(slot).edit->setGeometry(place.edit.translated(by));
        At(slot).hint->setGeometry(place.hint.translated(by));
    }
}

void LineArea::Reveal(int slot) {
    const int first = scroll->value();
    const int fitting = kSlotCount - scroll->maximum();
    if (slot < first) scroll->setValue(slot);
    if (slot >= first + fitting) scroll->setValue(slot - fitting + 1);
}

int LineArea::SlotAt(int y) const {
    const int first = scroll->value();
    const int last = first + kSlotCount - scroll->maximum() - 1;
    int slot = first;
    while (slot < last && y >= At(slot + 1).label->y())
        ++slot;
    return slot;
}

void LineArea::wheelEvent(QWheelEvent* event) {
    if (scroll->maximum() > 0) QApplication::sendEvent(scroll, event);
    event->accept();
}

}  // namespace kalvex
