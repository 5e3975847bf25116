// Lines have a white edge and texts a white box, so they can be read over a curve of any colour and
// with any theme of the desktop.
#include "ui/graph/overlay_painter.h"

#include <QFontMetrics>
#include <QPainter>

#include "painter/text_font.h"
#include "ui/parts/message_window.h"
#include "ui/parts/qt_text.h"

namespace kalvex {
namespace {

constexpr int kArm = 14;  // pixels from the middle of the cross to its ends
constexpr int kGap = 8;
constexpr int kPadding = 6;
constexpr int kTextFlags = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;

/// One text; numbers of hundreds of digits can be broken.
QString Joined(const Overlay& overlay) {
    QStringList lines;
    for (const std::u16string& text : overlay.texts)
        lines += ToQString(text);
    return ShowableText(lines.join('\n'));
}

void StrokeTwice(QPainter& painter, const auto& draw) {
    for (const auto& [color, width] : {std::pair(QColor(Qt::white), 6), {QColor(Qt::black), 2}}) {
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap));
        draw();
    }
}

void PaintCross(QPainter& painter, const PixelPoint& at) {
    // An open middle: the point itself stays visible.
    constexpr int kHole = 4;
    const QLineF arms[] = {QLineF(at.x + 0.5 - kArm, at.y + 0.5, at.x + 0.5 - kHole, at.y + 0.5),
                           QLineF(at.x + 0.5 + kHole, at.y + 0.5, at.x + 0.5 + kArm, at.y + 0.5),
                           QLineF(at.x + 0.5, at.y + 0.5 - kArm, at.x + 0.5, at.y + 0.5 - kHole),
                           QLineF(at.x + 0.5, at.y + 0.5 + kHole, at.x + 0.5, at.y + 0.5 + kArm)};
    StrokeTwice(painter, [&] { painter.drawLines(arms, 4); });
}

void PaintBand(QPainter& painter, const OverlayBand& band, int width, int textHeight) {
    const QRect place(0, band.top, width, band.bottom - band.top);
    painter.fillRect(place, QColor(60, 110, 190, 26));
    painter.setPen(QPen(QColor(60, 110, 190, 120), 1, Qt::DashLine));
    const int edge = band.top == 0 ? band.bottom - 1 : band.top;
    painter.drawLine(0, edge, width, edge);
    const QFont font = PictureFont(textHeight);
    const QFontMetrics metrics(font);
    const QString text = metrics.elidedText(ToQString(band.prompt), Qt::ElideRight, width);
    QRect ground = metrics.boundingRect(place, Qt::AlignCenter, text);
    ground.adjust(-kPadding, -2, kPadding, 2);
    painter.fillRect(ground.intersected(place), QColor(255, 255, 255, 215));
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(place, Qt::AlignCenter, text);
}

void PaintReadout(QPainter& painter, const QRect& box, const QString& text, const QFont& font) {
    painter.setPen(QColor(130, 130, 130));
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(box.adjusted(kPadding, kPadding, -kPadding, -kPadding), kTextFlags, text);
}

/// A rectangle between two points that may lie far outside the picture.
void PaintBox(QPainter& painter, const PixelPoint& a, const PixelPoint& b, const QSize& picture) {
    const auto near = [](int value, int end) { return qBound(-10, value, end + 10); };
    const QPoint from(near(a.x, picture.width()), near(a.y, picture.height()));
    const QPoint to(near(b.x, picture.width()), near(b.y, picture.height()));
    const QRectF box = QRectF(QRect(from, to).normalized()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.fillRect(box, QColor(60, 110, 190, 40));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawRect(box);
    painter.setPen(QPen(Qt::black, 1, Qt::DashLine));
    painter.drawRect(box);
}

}  // namespace

QRect ReadoutBox(const Overlay& overlay, const QSize& picture, int textHeight) {
    const QFontMetrics metrics(PictureFont(textHeight));
    const int room = qMax(picture.width() - 2 * kGap, 1);
    const QRect most(0, 0, qMax(qMin(room, 420) - 2 * kPadding, 1), 1 << 20);
    QRect box = metrics.boundingRect(most, kTextFlags, Joined(overlay));
    box.setSize(box.size() + QSize(2 * kPadding, 2 * kPadding));
    const int top = overlay.bands.empty() ? kGap : overlay.bands.front().bottom + kGap;
    box.moveTopRight(QPoint(picture.width() - 1 - kGap, top));
    constexpr int kFree = kArm + kGap;
    const bool covered =
        overlay.cross &&
        box.adjusted(-kFree, -kFree, kFree, kFree).contains(overlay.cross->x, overlay.cross->y);
    if (covered) box.moveLeft(kGap);
    return box;
}

void PaintOverlay(QPainter& painter, const Overlay& overlay, const QSize& picture, int textHeight) {
    painter.save();
    for (const OverlayBand& band : overlay.bands)
        PaintBand(painter, band, picture.width(), textHeight);
    if (overlay.corner && overlay.cross)
        PaintBox(painter, *overlay.corner, *overlay.cross, picture);
    if (!overlay.texts.empty()) {
        PaintReadout(painter, ReadoutBox(overlay, picture, textHeight), Joined(overlay),
                     PictureFont(textHeight));
    }
    const QRect visible = QRect(QPoint(0, 0), picture).adjusted(-kArm, -kArm, kArm, kArm);
    if (overlay.cross && visible.contains(overlay.cross->x, overlay.cross->y))
        PaintCross(painter, *overlay.cross);
    painter.restore();
}

}  // namespace kalvex
