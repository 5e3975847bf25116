// Small ellipses are drawn by QPainter. Its raster engine fails for coordinates beyond about 2^15
// pixels. Of a large ellipse only the pixels inside the picture are computed here: where the
// outline is flatter than 45 degrees, one pixel per column on the upper and on the lower half;
// where it is steeper, one per row on the left and on the right half. Together they leave no gap.
#include "painter/ellipse.h"

#include <algorithm>
#include <cmath>

#include "painter/qt_color.h"

namespace kalvex {
namespace {

constexpr double kLargestForQt = 16384.0;

/// The pixels at which the sides of an ellipse lie.
struct PixelBox {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

PixelBox BoxOf(const EllipseRecord& record) {
    return {TruncateToInt32(record.left), TruncateToInt32(record.top),
            TruncateToInt32(record.right), TruncateToInt32(record.bottom)};
}

/// Centre and half axes.
struct Shape {
    double x;
    double y;
    double a;
    double b;
};

/// Half the length of the chord at a distance from the centre; -1 where the line misses the
/// ellipse. `along` and `across` are the half axes along the distance and along the chord. The
/// factored form (along - d)(along + d) avoids the cancellation of along^2 - d^2 near the end of
/// the axis.
double HalfChord(double distance, double along, double across) {
    const double inside = (along - distance) * (along + distance);
    return inside < 0.0 ? -1.0 : across * std::sqrt(inside) / along;
}

/// Plots the outline at the positions 0 .. end - 1 of one axis, on both sides of the centre, but
/// only where its slope against this axis is at most 1.
template <typename Plot>
void PlotOutline(double centre, double along, double centreAcross, double across, int end,
                 const Plot& plot) {
    for (int i = 0; i < end; ++i) {
        const double distance = i - centre;
        const double half = HalfChord(std::fabs(distance), along, across);
        // Where the slope is above 1, the call for the other axis plots the pixels.
        if (half < 0.0 || std::fabs(distance) * across * across > half * along * along) continue;
        plot(i, centreAcross - half);
        plot(i, centreAcross + half);
    }
}

void FillInside(QPainter& painter, const DrawList& list, const Shape& shape, const QColor& color) {
    for (int row = 0; row < list.height; ++row) {
        const double half = HalfChord(std::fabs(row - shape.y), shape.b, shape.a);
        if (half < 0.0) continue;
        const double left = std::max(0.0, std::ceil(shape.x - half));
        const double right = std::min(list.width - 1.0, std::floor(shape.x + half));
        if (left > right) continue;
        painter.fillRect(QRectF(left, row, right - left + 1.0, 1.0), color);
    }
}

void DrawLarge(QPainter& painter, const DrawList& list, const EllipseRecord& record, bool fill) {
    const PixelBox box = BoxOf(record);
    const Shape shape{(static_cast<double>(box.left) + box.right) / 2.0,
                      (static_cast<double>(box.top) + box.bottom) / 2.0,
                      (static_cast<double>(box.right) - box.left) / 2.0,
                      (static_cast<double>(box.bottom) - box.top) / 2.0};
    if (!(shape.a > 0.0) || !(shape.b > 0.0)) return;
    if (fill) FillInside(painter, list, shape, ToQColor(record.fill));
    const QColor color = ToQColor(record.pen.color);
    const auto column = [&](int x, double y) {
        const double row = std::floor(y + 0.5);
        if (row >= 0.0 && row < list.height) painter.fillRect(QRectF(x, row, 1.0, 1.0), color);
    };
    const auto row = [&](int y, double x) {
        const double at = std::floor(x + 0.5);
        if (at >= 0.0 && at < list.width) painter.fillRect(QRectF(at, y, 1.0, 1.0), color);
    };
    PlotOutline(shape.x, shape.a, shape.y, shape.b, list.width, column);
    PlotOutline(shape.y, shape.b, shape.x, shape.a, list.height, row);
}

bool IsSmall(const PixelBox& box) {
    return std::abs(static_cast<double>(box.left)) < kLargestForQt &&
           std::abs(static_cast<double>(box.right)) < kLargestForQt &&
           std::abs(static_cast<double>(box.top)) < kLargestForQt &&
           std::abs(static_cast<double>(box.bottom)) < kLargestForQt;
}

}  // namespace

EllipseRecord EllipseOf(const CircleRecord& circle) {
    const PixelPoint centre = PixelOf(circle.centre);
    const double radius = circle.radius;
    EllipseRecord ellipse;
    ellipse.pen = circle.pen;
    ellipse.left = centre.x - radius;
    ellipse.top = centre.y - radius;
    ellipse.right = centre.x + radius;
    ellipse.bottom = centre.y + radius;
    ellipse.origin = circle.origin;
    return ellipse;
}

void DrawEllipse(QPainter& painter, const DrawList& list, const EllipseRecord& record, bool fill) {
    const PixelBox box = BoxOf(record);
    if (!IsSmall(box)) return DrawLarge(painter, list, record, fill);
    painter.setPen(QPen(ToQColor(record.pen.color), record.pen.width));
    painter.setBrush(fill ? QBrush(ToQColor(record.fill)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRect(box.left, box.top, box.right - box.left, box.bottom - box.top));
}

bool IsFilledBy(const EllipseRecord& inner, const EllipseRecord& outer) {
    const PixelBox in = BoxOf(inner);
    const PixelBox out = BoxOf(outer);
    return inner.filled && outer.filled && inner.fill == outer.fill && in.left >= out.left &&
           in.top >= out.top && in.right <= out.right && in.bottom <= out.bottom;
}

}  // namespace kalvex
