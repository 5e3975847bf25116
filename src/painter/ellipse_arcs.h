// The visible parts of an ellipse as lines.
#pragma once

#include <QLineF>
#include <QRectF>
#include <vector>

#include "graph/draw_list.h"

namespace kalvex {

/// Lines along the parts of the outline that lie within a rectangle, in order; they leave the
/// outline by less than a twentieth of a unit. The ellipse may reach far beyond the rectangle. None
/// for an ellipse without extent or one whose box is not finite.
[[nodiscard]] std::vector<QLineF> EllipseArcs(const EllipseRecord& record, const QRectF& bounds);

}  // namespace kalvex
