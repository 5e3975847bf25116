// Plays drawing records into a vector drawing.
#pragma once

#include "graph/draw_list.h"

class QPainter;

namespace kalvex {

/// Draws all records as shapes. Each polyline becomes one path, and so do all pixels of an implicit
/// curve. The centre of pixel (0, 0) is at (0.5, 0.5), as on the screen.
void PlayVector(QPainter& painter, const DrawList& list);

}  // namespace kalvex
