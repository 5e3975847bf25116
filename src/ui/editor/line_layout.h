// Where the nine lines stand in the editor.
#pragma once

#include <QRect>
#include <QSize>
#include <array>

#include "workspace/function_entry.h"

namespace kalvex {

struct LinePlace {
    QRect label;
    QRect edit;
    QRect hint;  ///< below the edit line; empty when there is no room for it
};

/// The least height of the line area: three lines that are tall enough for a finger.
[[nodiscard]] int LeastLineAreaHeight();

/// A ninth of the area's height, at least tall enough for a finger and at most 68 pixels.
[[nodiscard]] int RowHeight(int height);

/// Whole rows that fit into a visible height, 1 to 9.
[[nodiscard]] int FittingLines(int visibleHeight, int rowHeight);

/// The height that some rows take, 1 to 9.
[[nodiscard]] int HeightOfLines(int count, int rowHeight);

/// Nine rows of RowHeight(height): the label in the first 2/9 of the width (at most 170 pixels),
/// the line in the rest. Together the rows may be taller than `height`.
[[nodiscard]] std::array<LinePlace, kSlotCount> LayOutLines(int width, int height);

/// The height of a window above an input panel. `panel` is in the window's coordinates and empty
/// when there is none. A panel that would leave less than `least` is ignored, because nothing
/// usable would remain.
[[nodiscard]] int HeightAbovePanel(QSize window, const QRect& panel, int least);

}  // namespace kalvex
