// Ellipses of any size, painted as whole pixels.
#pragma once

#include <QPainter>

#include "graph/draw_list.h"

namespace kalvex {

/// The ellipse that stands for a circle: its box lies about the pixel of the centre.
[[nodiscard]] EllipseRecord EllipseOf(const CircleRecord& circle);

/// Draws one ellipse; its box includes the right and the bottom pixel. `fill` says whether its
/// inside is painted too. The record's box may reach far beyond the picture.
void DrawEllipse(QPainter& painter, const DrawList& list, const EllipseRecord& record, bool fill);

/// Whether filling `inner` right after `outer` would change no pixel: both are filled with the same
/// colour and the box of `inner` lies inside that of `outer`.
[[nodiscard]] bool IsFilledBy(const EllipseRecord& inner, const EllipseRecord& outer);

}  // namespace kalvex
