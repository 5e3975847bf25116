// Line i begins at y = (row height - 1) * i + 3 and is row height - 3 tall; the label begins 5
// pixels from the left. In a small window nine rows fill the height. In a large one rows and labels
// stop growing, so that the nine lines stay together. In a window that is too low for nine rows a
// row keeps the least height that a finger needs, and the area scrolls by whole rows.
#include "ui/editor/line_layout.h"

#include <algorithm>

#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kMargin = 5;
constexpr int kTop = 3;
constexpr int kLargestRow = 68;
constexpr int kLargestLabel = 170;
constexpr int kLargestEdit = 46;
constexpr int kHintHeight = 15;
constexpr int kLeastLines = 3;

}  // namespace

int LeastLineAreaHeight() {
    return kLeastLines * (kTouchTarget + kTop);
}

int RowHeight(int height) {
    return std::clamp(height / kSlotCount, kTouchTarget + kTop, kLargestRow);
}

int FittingLines(int visibleHeight, int rowHeight) {
    return std::clamp(visibleHeight / rowHeight, 1, kSlotCount);
}

int HeightOfLines(int count, int rowHeight) {
    return (rowHeight - 1) * count + kTop;
}

std::array<LinePlace, kSlotCount> LayOutLines(int width, int height) {
    const int row = RowHeight(height);
    const int labelEnd = std::min(width * 2 / 9, kLargestLabel);
    const int tall = row - kTop;
    const int editHeight = std::clamp(tall - kHintHeight, kTouchTarget, kLargestEdit);
    std::array<LinePlace, kSlotCount> places;
    for (int i = 0; i < kSlotCount; ++i) {
        const int top = (row - 1) * i + kTop;
        const int editWidth = std::max(0, width - labelEnd - 2 * kMargin);
        LinePlace& place = places[static_cast<std::size_t>(i)];
        place.label = QRect(kMargin, top, std::max(0, labelEnd - kMargin), editHeight);
        place.edit = QRect(labelEnd + kMargin, top, editWidth, editHeight);
        if (tall - editHeight >= kHintHeight - 1) {
            place.hint =
                QRect(place.edit.left() + 2, top + editHeight, editWidth - 2, tall - editHeight);
        }
    }
    return places;
}

int HeightAbovePanel(QSize window, const QRect& panel, int least) {
    const QRect covered = panel & QRect(QPoint(0, 0), window);
    return covered.isEmpty() || covered.top() < least ? window.height() : covered.top();
}

}  // namespace kalvex
