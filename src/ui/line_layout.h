// Where the nine lines stand in the editor.
#pragma once

#include <QRect>
#include <array>

#include "workspace/function_entry.h"

namespace kalvex {

struct LinePlace {
    QRect label;
    QRect edit;
    QRect hint;  ///< below the edit; empty when there is no room for it
};

/// The least height of the line area in which every line is tall enough for a finger.
int LeastLineAreaHeight();

/// Rows of a ninth of the height (no taller than comfortable), the label in the first 2/9 of the
/// width (no wider than comfortable), the line in the rest without running out of the window.
std::array<LinePlace, kSlotCount> LayOutLines(int width, int height);

}  // namespace kalvex
