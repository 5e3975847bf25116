#include "painter/ellipse_arcs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kalvex {
namespace {

const QRectF kBounds(-80, -80, 560, 460);

EllipseRecord EllipseAt(double x, double y, double a, double b) {
    EllipseRecord record;
    record.left = x - a;
    record.right = x + a;
    record.top = y - b;
    record.bottom = y + b;
    return record;
}

/// How far a point lies off the outline, to first order.
double OffOutline(const QPointF& point, double x, double y, double a, double b) {
    const double u = (point.x() - x) / a;
    const double v = (point.y() - y) / b;
    return std::fabs(u * u + v * v - 1.0) / (2.0 * std::hypot(u / a, v / b));
}

TEST(EllipseArcs, FollowTheOutline) {
    const struct {
        double x, y, a, b;
        double length;  ///< of the visible arcs; 0: not checked
    } rows[] = {
        {200, 150, 100, 100, 2 * 3.14159265 * 100},
        {200, 150, 3, 3, 2 * 3.14159265 * 3},
        {200, 150, 120, 1, 480},
        {-1e9, 150, 1e9 + 200, 1e9, 460},
        {2e9, 2e9, 2e9, 2e9, 0},
        {200, -5e5, 4, 5e5 + 300, 0},
    };
    for (const auto& row : rows) {
        double length = 0.0;
        for (const QLineF& line : EllipseArcs(EllipseAt(row.x, row.y, row.a, row.b), kBounds)) {
            length += line.length();
            for (const QPointF& point : {line.p1(), line.center()})
                EXPECT_LT(OffOutline(point, row.x, row.y, row.a, row.b), 0.06)
                    << row.a << ' ' << point.x() << ' ' << point.y();
            EXPECT_TRUE(kBounds.adjusted(-1, -1, 1, 1).contains(line.p1()));
        }
        if (row.length > 0.0) {
            EXPECT_NEAR(length, row.length, 0.006 * row.length) << row.a;
        }
    }
}

TEST(EllipseArcs, OfNothingAreNone) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double a : {0.0, -5.0, kInfinity, std::nan("")})
        EXPECT_TRUE(EllipseArcs(EllipseAt(50, 50, a, 10), kBounds).empty()) << a;
    EXPECT_TRUE(EllipseArcs(EllipseAt(200, 150, 5000, 5000), kBounds).empty()) << "all around";
    EXPECT_TRUE(EllipseArcs(EllipseAt(9000, 150, 50, 50), kBounds).empty()) << "beside";
}

}  // namespace
}  // namespace kalvex
