// Ellipses of any size.
#pragma once

#include <QPainter>

#include "graph/draw_list.h"

namespace kalvex {

/// Draws one ellipse; its box includes the right and the bottom pixel. `fill` says whether its
/// inside is painted too. The record's box may reach far beyond the picture.
void DrawEllipse(QPainter& painter, const DrawList& list, const EllipseRecord& record, bool fill);

/// Whether painting the inside of `inner` right after `outer` changes nothing: both have the same
/// fill and inner's box lies in outer's.
bool IsFilledBy(const EllipseRecord& inner, const EllipseRecord& outer);

}  // namespace kalvex
