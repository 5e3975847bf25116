// Liang and Barsky: the line is cut at each of the four edges by its parameter. Coordinates are
// 32-bit integers, so every difference and product below is far from a double's limits.
#include "painter/line_clip.h"

#include <algorithm>

namespace kalvex {
namespace {

constexpr double kMargin = 4096.0;

/// The parameters of the part of a line that is left.
struct Part {
    double from = 0.0;
    double to = 1.0;
};

/// Keeps where start + t * change >= limit (in the sense of one edge). False when nothing is left.
bool CutAt(Part& part, double change, double distance) {
    if (change == 0.0) return distance <= 0.0;
    const double t = distance / change;
    if (change > 0.0)
        part.from = std::max(part.from, t);
    else
        part.to = std::min(part.to, t);
    return part.from <= part.to;
}

}  // namespace

std::optional<QLineF> ClipSegment(const Segment& segment, const QRectF& bounds) {
    const QLineF whole(segment.from.x, segment.from.y, segment.to.x, segment.to.y);
    if (bounds.contains(whole.p1()) && bounds.contains(whole.p2())) return whole;
    Part part;
    const double dx = whole.dx();
    const double dy = whole.dy();
    const bool remains = CutAt(part, dx, bounds.left() - whole.x1()) &&
                         CutAt(part, -dx, whole.x1() - bounds.right()) &&
                         CutAt(part, dy, bounds.top() - whole.y1()) &&
                         CutAt(part, -dy, whole.y1() - bounds.bottom());
    if (!remains) return std::nullopt;
    return QLineF(whole.pointAt(part.from), whole.pointAt(part.to));
}

QRectF DrawableBounds(const DrawList& list) {
    return {-kMargin, -kMargin, list.width + 2.0 * kMargin, list.height + 2.0 * kMargin};
}

}  // namespace kalvex
