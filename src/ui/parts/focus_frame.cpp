// Half of a pen lies on either side of its path, so the path runs one pixel inside.
#include "ui/parts/focus_frame.h"

#include <QPainter>

#include "ui/parts/contrast.h"

namespace kalvex {
namespace {

constexpr double kControlContrast = 3.0;
constexpr int kWidth = 2;
constexpr double kRadius = 4.0;

}  // namespace

void DrawFocusFrame(QPainter& painter, const QRect& place, const QPalette& palette,
                    QPalette::ColorRole ground) {
    const QColor color =
        ReadableColor(palette.color(QPalette::Highlight), palette.color(ground), kControlContrast);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, kWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(1, 1, -1, -1), kRadius, kRadius);
    painter.restore();
}

}  // namespace kalvex
