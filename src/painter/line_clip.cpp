// The algorithm of Liang and Barsky: the line is a point plus a parameter times a direction, and
// each edge of the rectangle narrows the interval of the parameter. Coordinates are 32-bit
// integers, so no difference or product below can overflow or lose its sign in doubles.
#include "painter/line_clip.h"

#include <algorithm>

namespace kalvex {
namespace {

constexpr double kMargin = 4096.0;

/// The interval of the parameter in which the line is inside all edges seen so far.
struct Part {
    double from = 0.0;
    double to = 1.0;
};

/// Narrows the interval to where start + t * change >= limit. False when it becomes empty.
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
