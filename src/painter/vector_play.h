// Plays drawing records into a vector drawing.
#pragma once

#include "graph/draw_list.h"

class QPainter;

namespace kalvex {

/// Draws all records as shapes: a run is one path, the pixels of an implicit curve are one path.
/// The middle of pixel (0, 0) is at (0.5, 0.5), as on the screen.
void PlayVector(QPainter& painter, const DrawList& list);

}  // namespace kalvex
