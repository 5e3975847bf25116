// The page is white by itself, so nothing is painted behind the picture.
#include "painter/page.h"

#include <QPaintDevice>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "painter/smooth_play.h"

namespace kalvex {

QRectF PlaceOnPage(const QSizeF& picture, const QSizeF& room, PageFit fit) {
    if (fit == PageFit::Stretched) return {QPointF(0.0, 0.0), room};
    const QSizeF size = picture.scaled(room, Qt::KeepAspectRatio);
    return {QPointF((room.width() - size.width()) / 2.0, (room.height() - size.height()) / 2.0),
            size};
}

QSize SizeForPage(const QSize& seen, const QSizeF& room) {
    const double pixels = static_cast<double>(seen.width()) * seen.height();
    const double unit = std::sqrt(pixels / (room.width() * room.height()));
    return {std::max(static_cast<int>(std::lround(room.width() * unit)), 1),
            std::max(static_cast<int>(std::lround(room.height() * unit)), 1)};
}

bool PaintPage(QPaintDevice& page, const DrawList& picture, PageFit fit) {
    const QSizeF room(page.width(), page.height());
    if (picture.width <= 0 || picture.height <= 0 || room.isEmpty()) return false;
    QPainter painter;
    if (!painter.begin(&page)) return false;
    const QRectF place = PlaceOnPage(QSizeF(picture.width, picture.height), room, fit);
    painter.translate(place.topLeft());
    painter.scale(place.width() / picture.width, place.height() / picture.height);
    painter.setClipRect(QRect(0, 0, picture.width, picture.height));
    PlaySmooth(painter, picture);
    return painter.end();
}

}  // namespace kalvex
