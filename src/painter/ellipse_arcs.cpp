// The outline is cut at the angles at which it meets the lines of the rectangle's sides. Between
// two of them it is inside or outside as a whole.
#include "painter/ellipse_arcs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kalvex {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kDeviation = 0.05;  ///< of a chord from its arc

struct Ellipse {
    QPointF centre;
    double a;
    double b;
};

QPointF PointAt(const Ellipse& ellipse, double angle) {
    return {ellipse.centre.x() + ellipse.a * std::cos(angle),
            ellipse.centre.y() + ellipse.b * std::sin(angle)};
}

void AddAngle(std::vector<double>& angles, double angle) {
    if (std::isfinite(angle)) angles.push_back(angle < 0.0 ? angle + kTurn : angle);
}

/// The angles of all intersections, the start and the end of the turn, in order.
std::vector<double> CutAngles(const Ellipse& ellipse, const QRectF& bounds) {
    std::vector<double> angles = {0.0, kTurn};
    for (const double x : {bounds.left(), bounds.right()}) {
        const double angle = std::acos((x - ellipse.centre.x()) / ellipse.a);
        AddAngle(angles, angle);
        AddAngle(angles, -angle);
    }
    for (const double y : {bounds.top(), bounds.bottom()}) {
        const double angle = std::asin((y - ellipse.centre.y()) / ellipse.b);
        AddAngle(angles, angle);
        AddAngle(angles, std::numbers::pi - angle);
    }
    std::sort(angles.begin(), angles.end());
    return angles;
}

/// The deviation of a chord over an angle h is at most r h^2 / 8 for the larger half axis r.
void AddArc(const Ellipse& ellipse, double from, double to, std::vector<QLineF>& lines) {
    constexpr double kMostLines = 100'000.0;
    const double step = std::sqrt(8.0 * kDeviation / std::max(ellipse.a, ellipse.b));
    const double count = std::clamp(std::ceil((to - from) / step), 1.0, kMostLines);
    QPointF last = PointAt(ellipse, from);
    for (double i = 1.0; i <= count; ++i) {
        const QPointF next = PointAt(ellipse, from + (to - from) * (i / count));
        lines.emplace_back(last, next);
        last = next;
    }
}

}  // namespace

std::vector<QLineF> EllipseArcs(const EllipseRecord& record, const QRectF& bounds) {
    const Ellipse ellipse{
        {record.left / 2.0 + record.right / 2.0, record.top / 2.0 + record.bottom / 2.0},
        record.right / 2.0 - record.left / 2.0,
        record.bottom / 2.0 - record.top / 2.0};
    std::vector<QLineF> lines;
    const bool hasExtent =
        std::isfinite(ellipse.a) && std::isfinite(ellipse.b) && ellipse.a > 0.0 && ellipse.b > 0.0;
    if (!hasExtent) return lines;
    const std::vector<double> angles = CutAngles(ellipse, bounds);
    for (std::size_t i = 1; i < angles.size(); ++i) {
        const double middle = (angles[i - 1] + angles[i]) / 2.0;
        if (angles[i] > angles[i - 1] && bounds.contains(PointAt(ellipse, middle)))
            AddArc(ellipse, angles[i - 1], angles[i], lines);
    }
    return lines;
}

}  // namespace kalvex
