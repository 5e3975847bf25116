// The algorithm of Liang and Barsky: the line is a point plus a parameter times a direction, and
// each edge of the rectangle narrows the interval of the parameter. Coordinates are bounded to 32
// bits, so no difference or product below can overflow or lose its sign in doubles.
#include "painter/line_clip.h"

#include <algorithm>
#include <cmath>

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

/// QRectF::contains, which is no inline function.
bool Contains(const QRectF& bounds, const QPointF& point) {
    return point.x() >= bounds.left() && point.x() <= bounds.right() && point.y() >= bounds.top() &&
           point.y() <= bounds.bottom();
}

/// Not-a-number stays.
double Bounded(double coordinate) {
    constexpr double kLargest = 2147483647.0;
    return coordinate < -kLargest ? -kLargest : coordinate > kLargest ? kLargest : coordinate;
}

}  // namespace

QLineF PixelLine(const Segment& segment) {
    const PixelPoint from = PixelOf(segment.from);
    const PixelPoint to = PixelOf(segment.to);
    return QLineF(from.x, from.y, to.x, to.y);
}

QLineF ExactLine(const Segment& segment) {
    return QLineF(Bounded(segment.from.x), Bounded(segment.from.y), Bounded(segment.to.x),
                  Bounded(segment.to.y));
}

std::optional<QLineF> ClipLine(const QLineF& whole, const QRectF& bounds) {
    if (Contains(bounds, whole.p1()) && Contains(bounds, whole.p2())) return whole;
    if (std::isnan(whole.x1() + whole.y1() + whole.x2() + whole.y2())) return std::nullopt;
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
