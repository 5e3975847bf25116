// Lines are clipped before they are drawn, because viewers do not agree on how to draw very large
// coordinates. A polyline that leaves the clipping rectangle and returns becomes several pieces.
#include "painter/vector_play.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "painter/line_clip.h"
#include "painter/qt_color.h"
#include "painter/text_font.h"

namespace kalvex {
namespace {

struct VectorStage {
    QPainter& painter;
    QRectF bounds;
};

QPen PenOf(const Pen& pen) {
    return QPen(ToQColor(pen.color), std::max(pen.width, 1), Qt::SolidLine, Qt::RoundCap,
                Qt::RoundJoin);
}

/// Strokes a path given in pixel positions. The centre of a pixel is half a unit right and below.
void Stroke(const VectorStage& stage, const Pen& pen, QPainterPath path) {
    if (path.isEmpty()) return;
    path.translate(0.5, 0.5);
    stage.painter.strokePath(path, PenOf(pen));
}

void AddPiece(QPainterPath& path, const QLineF& line) {
    if (path.isEmpty() || path.currentPosition() != line.p1()) path.moveTo(line.p1());
    path.lineTo(line.p2());
}

void Play(const VectorStage& stage, const SegmentsRecord& record) {
    QPainterPath path;
    for (const Segment& segment : record.segments)
        if (const auto line = ClipSegment(segment, stage.bounds)) AddPiece(path, *line);
    Stroke(stage, record.pen, path);
}

void Play(const VectorStage& stage, const PolylineRecord& record) {
    QPainterPath path;
    for (std::size_t i = 1; i < record.points.size(); ++i)
        if (const auto line = ClipSegment({record.points[i - 1], record.points[i]}, stage.bounds))
            AddPiece(path, *line);
    Stroke(stage, record.pen, path);
}

void Play(const VectorStage& stage, const EllipseRecord& record) {
    const QRectF box(QPointF(record.left, record.top), QPointF(record.right, record.bottom));
    stage.painter.setPen(PenOf(record.pen));
    stage.painter.setBrush(record.filled ? QBrush(ToQColor(record.fill)) : QBrush(Qt::NoBrush));
    stage.painter.drawEllipse(box.translated(0.5, 0.5));
}

void Play(const VectorStage& stage, const PixelRunsRecord& record) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const PixelRun& run : record.runs)
        path.addRect(run.column, run.row, run.length, 1);
    stage.painter.fillPath(path, ToQColor(record.color));
}

void Play(const VectorStage& stage, const TextRecord& record) {
    QFont font = PictureFont(record.height);
    font.setFamily("sans-serif");  // the generic name, which every viewer knows
    stage.painter.setFont(font);
    stage.painter.setPen(ToQColor(record.color));
    // A text far off the picture may have a position near the largest integer.
    const double baseline = static_cast<double>(record.y) + stage.painter.fontMetrics().ascent();
    stage.painter.drawText(QPointF(record.x, baseline), QString::fromStdU16String(record.text));
}

}  // namespace

void PlayVector(QPainter& painter, const DrawList& list) {
    painter.save();
    // The margin is wider than the widest pen, so the clipped end of a line is never visible.
    constexpr double kMargin = 80.0;
    const VectorStage stage{
        painter, QRectF(-kMargin, -kMargin, list.width + 2 * kMargin, list.height + 2 * kMargin)};
    for (const DrawRecord& record : list.records)
        std::visit([&](const auto& one) { Play(stage, one); }, record);
    painter.restore();
}

}  // namespace kalvex
