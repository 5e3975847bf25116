// The text is painted as a path, so that a bright colour (cyan on a light window) can have a thin
// darker rim of the same hue: the letters keep the exact colour of the curve and can still be read.
// On the dark background of a selected line the colour itself is changed until it has contrast.
#include "ui/editor/line_label.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "ui/parts/contrast.h"

namespace kalvex {
namespace {

// The contrast that the Web Content Accessibility Guidelines ask of ordinary text. Letters with
// less get a rim that has it. The inner half of a rim is covered by the letter. A light rim around
// dark letters looks thinner and is made wider.
constexpr double kTextContrast = 4.5;
constexpr double kRimOnLight = 1.0;
constexpr double kRimOnDark = 2.4;
constexpr int kMarkWidth = 18;
constexpr int kMargin = 6;

/// The largest font up to the label's own that fits the width.
QFont FittingFont(QFont font, const QString& text, int width) {
    while (font.pointSizeF() > 7.0 && QFontMetrics(font).horizontalAdvance(text) > width) {
        font.setPointSizeF(font.pointSizeF() - 0.5);
    }
    return font;
}

void DrawCheckMark(QPainter& painter, double centreY, const QColor& color) {
    QPen pen(color, 2.2);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    QPainterPath mark(QPointF(kMargin + 1, centreY));
    mark.lineTo(kMargin + 5, centreY + 4.5);
    mark.lineTo(kMargin + 12, centreY - 5);
    painter.drawPath(mark);
}

}  // namespace

LineLabel::LineLabel(QWidget* parent) : QLabel(parent) {
    QFont face = font();
    face.setPointSizeF(face.pointSizeF() * 1.3);
    face.setWeight(QFont::DemiBold);
    setFont(face);
    setTextFormat(Qt::PlainText);
}

void LineLabel::Show(const QString& label, std::optional<QColor> color, bool isSelected) {
    setText(label);
    lineColor = color;
    isSelectedLine = isSelected;
    update();
}

QColor LineLabel::Ground() const {
    return palette().color(isSelectedLine ? QPalette::WindowText : QPalette::Window);
}

QColor LineLabel::TextColor() const {
    if (!isSelectedLine) return lineColor.value_or(palette().color(QPalette::WindowText));
    return ReadableColor(lineColor.value_or(palette().color(QPalette::Window)), Ground(),
                         kTextContrast);
}

void LineLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isSelectedLine) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Ground());
        painter.drawRoundedRect(box, 5, 5);
        DrawCheckMark(painter, box.center().y(), TextColor());
    }
    const QString shown = text().trimmed();
    QFont face = font();
    if (isSelectedLine) face.setWeight(QFont::Bold);
    face = FittingFont(face, shown, width() - kMarkWidth - 2 * kMargin);
    const QFontMetrics metrics(face);
    QPainterPath shape;
    shape.addText(width() - kMargin - metrics.horizontalAdvance(shown),
                  (height() + metrics.ascent() - metrics.descent()) / 2.0, face, shown);
    if (ContrastRatio(TextColor(), Ground()) < kTextContrast) {
        const QColor rim = ReadableColor(TextColor(), Ground(), kTextContrast);
        painter.strokePath(shape, QPen(rim, IsDark(Ground()) ? kRimOnDark : kRimOnLight));
    }
    painter.fillPath(shape, TextColor());
}

void LineLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit Picked();
}

void LineLabel::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) emit SlidTo(event->globalPosition().toPoint());
}

void LineLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit Lifted();
}

void LineLabel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit Toggled();
}

}  // namespace kalvex
