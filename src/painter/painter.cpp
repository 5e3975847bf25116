// The classic way of playing, one function per kind of record. Only texts are drawn with
// antialiasing, so that exactly the pixels of the records change. A polyline is drawn as separate
// lines with square caps, which close the joints: QPainter's general stroker, which true joints or
// round caps need, is several times slower.
#include "painter/painter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "painter/direct_image.h"
#include "painter/ellipse.h"
#include "painter/line_clip.h"
#include "painter/qt_color.h"
#include "painter/smooth_play.h"
#include "painter/text_font.h"

namespace kalvex {
namespace {

/// The state while a list is drawn.
struct Stage {
    QPainter& painter;
    const DrawList& list;
    QRectF bounds;
    const EllipseRecord* outerEllipse = nullptr;  ///< the previous record, when it was an ellipse
};

void DrawLines(Stage& stage, const Pen& pen, const std::vector<QLineF>& lines) {
    if (lines.empty()) return;
    stage.painter.setPen(
        QPen(ToQColor(pen.color), std::max(pen.width, 1), Qt::SolidLine, Qt::SquareCap));
    stage.painter.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void Play(Stage& stage, const SegmentsRecord& record) {
    std::vector<QLineF> lines;
    lines.reserve(record.segments.size());
    for (const Segment& segment : record.segments) {
        if (IsWithinPixel(segment)) continue;
        if (const auto line = ClipLine(PixelLine(segment), stage.bounds)) lines.push_back(*line);
    }
    DrawLines(stage, record.pen, lines);
}

void Play(Stage& stage, const PolylineRecord& record) {
    std::vector<QLineF> lines;
    lines.reserve(record.points.size());
    for (std::size_t i = 1; i < record.points.size(); ++i)
        if (const auto line =
                ClipLine(PixelLine({record.points[i - 1], record.points[i]}), stage.bounds))
            lines.push_back(*line);
    DrawLines(stage, record.pen, lines);
}

void Play(Stage& stage, const EllipseRecord& record) {
    const bool covered = stage.outerEllipse != nullptr && IsFilledBy(record, *stage.outerEllipse);
    DrawEllipse(stage.painter, stage.list, record, record.filled && !covered);
}

void Play(Stage& stage, const CircleRecord& record) {
    DrawEllipse(stage.painter, stage.list, EllipseOf(record), false);
}

void Play(Stage& stage, const PixelRunsRecord& record) {
    const DirectImage target = DirectImageOf(stage.painter);
    const bool isWhole = target.ratio == std::floor(target.ratio);
    for (const PixelRun& run : record.runs) {
        if (target.image != nullptr && isWhole)
            Fill(target, RectOf(run, target.ratio), record.color);
        else
            stage.painter.fillRect(QRect(run.column, run.row, run.length, 1),
                                   ToQColor(record.color));
    }
}

void Play(Stage& stage, const TextRecord& record) {
    if (!stage.bounds.contains(QPointF(record.x, record.y))) return;
    stage.painter.setFont(PictureFont(record.height));
    stage.painter.setPen(ToQColor(record.color));
    const int baseline = record.y + stage.painter.fontMetrics().ascent();
    stage.painter.drawText(QPoint(record.x, baseline), QString::fromStdU16String(record.text));
}

}  // namespace

void PlayDrawList(QPainter& painter, const DrawList& list) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    Stage stage{painter, list, DrawableBounds(list)};
    for (const DrawRecord& record : list.records) {
        std::visit([&](const auto& one) { Play(stage, one); }, record);
        stage.outerEllipse = std::get_if<EllipseRecord>(&record);
    }
    painter.restore();
}

Playing PlayingOf(const Options& options) {
    return options.Smooth != 0 ? Playing::Smooth : Playing::Classic;
}

QImage PaintPicture(const DrawList& list, double devicePixelRatio, Playing playing) {
    if (list.width <= 0 || list.height <= 0) return {};
    const bool usable = std::isfinite(devicePixelRatio) && devicePixelRatio > 0.0;
    const double ratio = usable ? std::clamp(devicePixelRatio, 0.125, 64.0) : 1.0;
    const auto pixels = [ratio](std::int32_t size) {
        return std::max(static_cast<int>(std::lround(size * ratio)), 1);
    };
    QImage picture(pixels(list.width), pixels(list.height), QImage::Format_RGB32);
    if (picture.isNull()) return picture;
    if (ratio > 1.0) picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    if (ratio < 1.0) painter.scale(ratio, ratio);  // what QPainter does by itself above 1 only
    if (playing == Playing::Smooth)
        PlaySmooth(painter, list);
    else
        PlayDrawList(painter, list);
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

}  // namespace kalvex
