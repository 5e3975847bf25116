// Plays drawing records at their exact positions, with soft edges.
#pragma once

#include "graph/draw_list.h"

class QPainter;

namespace kalvex {

/// Draws all records; a unit of the painter is a logical pixel. Lines have round joints. Implicit
/// curves are drawn along their contours where the list has them (graph/contours.h). Numbers and
/// names stand on a ground of their own above the curves. On an image the lines of grid and axes
/// fall on whole device pixels; on any other device everything becomes shapes and texts.
void PlaySmooth(QPainter& painter, const DrawList& list);

}  // namespace kalvex
