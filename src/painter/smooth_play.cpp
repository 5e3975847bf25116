// Curves become pieces of connected lines. On an image they are painted by coverage.h, which is
// many times faster than QPainter's stroker; on other devices each record is one path. Lines are
// clipped before, because neither can draw very large coordinates. Neighbouring records of one
// colour are painted together.
#include "painter/smooth_play.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "painter/coverage.h"
#include "painter/direct_image.h"
#include "painter/ellipse_arcs.h"
#include "painter/line_clip.h"
#include "painter/qt_color.h"
#include "painter/text_font.h"

namespace kalvex {
namespace {

/// The state while a list is drawn.
struct Stage {
    QPainter& painter;
    QRectF bounds;  ///< what lies outside cannot be seen
    DirectImage target = {};
    CoverageMask mask = {};
    Rgb covering = {};  ///< the colour of what the mask has
};

/// Paints what was collected of a colour.
void Flush(Stage& stage) {
    if (stage.mask.firstRow == stage.mask.endRow) return;
    QImage& image = *stage.target.image;
    const Rgb& c = stage.covering;
    const std::uint32_t color = std::uint32_t{c.red} << 16 | std::uint32_t{c.green} << 8 | c.blue;
    PaintCovered(stage.mask, color, reinterpret_cast<std::uint32_t*>(image.bits()),
                 image.bytesPerLine() / 4);
}

/// The mask, empty or with parts of this colour.
CoverageMask& MaskFor(Stage& stage, const Rgb& color) {
    if (stage.covering != color) Flush(stage);
    stage.covering = color;
    return stage.mask;
}

QPen PenOf(const Pen& pen) {
    return QPen(ToQColor(pen.color), std::max(pen.width, 1), Qt::SolidLine, Qt::RoundCap,
                Qt::RoundJoin);
}

/// Adds lines to the mask or to the path, whichever the device needs.
struct Brush {
    Stage& stage;
    Pen pen;
    CoverageMask* mask = nullptr;
    QPainterPath path = {};
    std::optional<QLineF> waiting = {};  ///< the last line, until the next one is known
    bool isJoined = false;               ///< its start is
};

Brush BrushOf(Stage& stage, const Pen& pen) {
    Brush brush{stage, pen};
    if (stage.target.image != nullptr) brush.mask = &MaskFor(stage, pen.color);
    return brush;
}

/// A line in device pixels.
CoverageLine Scaled(const Brush& brush, const QLineF& line) {
    const double ratio = brush.stage.target.ratio;
    return {line.x1() * ratio, line.y1() * ratio, line.x2() * ratio, line.y2() * ratio};
}

/// Covers the line that waits.
void CoverWaiting(Brush& brush, bool isLastJoined) {
    if (!brush.waiting) return;
    CoverLine(*brush.mask, Scaled(brush, *brush.waiting),
              std::max(brush.pen.width, 1) * brush.stage.target.ratio,
              {brush.isJoined, isLastJoined});
    brush.isJoined = isLastJoined;
}

void Add(Brush& brush, const QLineF& whole) {
    const auto line = ClipLine(whole, brush.stage.bounds);
    if (!line) return;
    if (brush.mask != nullptr) {
        const auto& last = brush.waiting;
        const double width = std::max(brush.pen.width, 1) * brush.stage.target.ratio;
        const bool joins = last && last->x2() == line->x1() && last->y2() == line->y1() &&
                           MayBeJoined(Scaled(brush, *last), Scaled(brush, *line), width);
        CoverWaiting(brush, joins);
        brush.waiting = line;
        return;
    }
    QPainterPath& path = brush.path;
    if (path.isEmpty() || path.currentPosition() != line->p1()) path.moveTo(line->p1());
    path.lineTo(line->p2());
}

void Finish(Brush& brush) {
    CoverWaiting(brush, false);
    if (!brush.path.isEmpty()) brush.stage.painter.strokePath(brush.path, PenOf(brush.pen));
}

/// A line of the grid or of an axis on whole device pixels. Both ends reach half a pen beyond.
DeviceRect HairlineRect(const QLineF& line, std::int32_t penWidth, double ratio) {
    const double width = std::max(1.0, std::floor(std::max(penWidth, 1) * ratio));
    const auto first = [&](double a, double b) {
        // A line at position 0 lies on the first pixel: halves are rounded up.
        return static_cast<std::int64_t>(std::floor(std::min(a, b) * ratio - width / 2.0 + 0.5));
    };
    const auto length = [&](double a, double b) {
        return std::llround(std::fabs(b - a) * ratio + width);
    };
    const std::int64_t left = first(line.x1(), line.x2());
    const std::int64_t top = first(line.y1(), line.y2());
    return {left, top, left + length(line.x1(), line.x2()), top + length(line.y1(), line.y2())};
}

/// The last point up to which one straight line stands for the points from `first` on: it passes
/// all of them at most a hundredth of a pixel above or below. Such a line is one whose slope lies
/// between the slopes to the points' tolerances.
std::size_t EndOfStraight(const std::vector<Position>& points, std::size_t first) {
    constexpr double kTolerance = 0.01;
    double least = -std::numeric_limits<double>::infinity();
    double greatest = std::numeric_limits<double>::infinity();
    std::size_t last = first + 1;
    for (std::size_t i = first + 1; i < points.size(); ++i) {
        const double dx = points[i].x - points[first].x;
        const double dy = points[i].y - points[first].y;
        if (!(dx > 0.0)) break;
        if (!(dy >= least * dx && dy <= greatest * dx)) break;
        last = i;
        least = std::max(least, (dy - kTolerance) / dx);
        greatest = std::min(greatest, (dy + kTolerance) / dx);
    }
    return last;
}

bool IsHairline(const Stage& stage, const RecordOrigin& origin) {
    return stage.target.image != nullptr &&
           (origin.layer == DrawLayer::Grid || origin.layer == DrawLayer::Axes);
}

void Play(Stage& stage, const SegmentsRecord& record) {
    if (IsHairline(stage, record.origin)) {
        Flush(stage);
        for (const Segment& segment : record.segments) {
            if (const auto line = ClipLine(ExactLine(segment), stage.bounds))
                Fill(stage.target, HairlineRect(*line, record.pen.width, stage.target.ratio),
                     record.pen.color);
        }
        return;
    }
    Brush brush = BrushOf(stage, record.pen);
    for (const Segment& segment : record.segments)
        Add(brush, ExactLine(segment));
    Finish(brush);
}

void Play(Stage& stage, const PolylineRecord& record) {
    Brush brush = BrushOf(stage, record.pen);
    const std::vector<Position>& points = record.points;
    for (std::size_t first = 0; first + 1 < points.size();) {
        const std::size_t last = EndOfStraight(points, first);
        Add(brush, ExactLine({points[first], points[last]}));
        first = last;
    }
    Finish(brush);
}

void Play(Stage& stage, const CircleRecord& record) {
    const double x = record.centre.x;
    const double y = record.centre.y;
    // QRectF::contains holds for what is not a number.
    if (!ClipLine(ExactLine({record.centre, record.centre}), stage.bounds)) return;
    if (stage.target.image != nullptr) {
        const double ratio = stage.target.ratio;
        CoverCircle(MaskFor(stage, record.pen.color), x * ratio, y * ratio, record.radius * ratio,
                    record.pen.width * ratio);
        return;
    }
    stage.painter.setPen(PenOf(record.pen));
    stage.painter.setBrush(Qt::NoBrush);
    stage.painter.drawEllipse(QPointF(x, y), record.radius, record.radius);
}

/// The inside is left out: rings about one centre do not meet, and the ground is white.
void Play(Stage& stage, const EllipseRecord& record) {
    Brush brush = BrushOf(stage, record.pen);
    for (const QLineF& line : EllipseArcs(record, stage.bounds))
        Add(brush, line);
    Finish(brush);
}

void FillRuns(Stage& stage, const std::vector<PixelRun>& runs, const Rgb& color) {
    if (runs.empty()) return;
    if (stage.target.image != nullptr) {
        Flush(stage);
        for (const PixelRun& run : runs)
            Fill(stage.target, RectOf(run, stage.target.ratio), color);
        return;
    }
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const PixelRun& run : runs)
        path.addRect(run.column, run.row, run.length, 1);
    stage.painter.fillPath(path, ToQColor(color));
}

void Play(Stage& stage, const PixelRunsRecord& record) {
    if (!record.contours) return FillRuns(stage, record.runs, record.color);
    FillRuns(stage, record.contours->filled, record.color);
    Brush brush = BrushOf(stage, {record.color, 1});
    std::size_t first = 0;
    for (const std::size_t end : record.contours->ends) {
        const std::vector<Position>& points = record.contours->points;
        if (end - first == 1) Add(brush, ExactLine({points[first], points[first]}));
        for (std::size_t i = first + 1; i < end; ++i)
            Add(brush, ExactLine({points[i - 1], points[i]}));
        first = end;
    }
    Finish(brush);
}

/// The text painted at places around its own, at `distance` logical pixels.
void PaintAround(QPainter& painter, const QPointF& at, const QString& text, double distance) {
    constexpr int kPlaces = 8;
    for (int i = 0; i < kPlaces; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / kPlaces;
        painter.drawText(at + distance * QPointF(std::cos(angle), std::sin(angle)), text);
    }
}

/// A white seam about a text, so that it can be read on lines of any colour. On an image of the
/// usual ratios the text is painted several times around its place, because the letters are in a
/// cache and their outlines are not; the places are less than two device pixels apart.
void PaintSeam(Stage& stage, const QPointF& at, const QString& text) {
    constexpr double kWidth = 1.25;
    constexpr double kLargestRatio = 2.5;
    QPainter& painter = stage.painter;
    if (stage.target.image == nullptr || stage.target.ratio > kLargestRatio) {
        QPainterPath outline;
        outline.addText(at, painter.font(), text);
        painter.strokePath(
            outline, QPen(Qt::white, 2.0 * kWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        return;
    }
    painter.setPen(Qt::white);
    if (stage.target.ratio * kWidth > 1.5) PaintAround(painter, at, text, kWidth / 2.0);
    PaintAround(painter, at, text, kWidth);
}

/// A light ground for a text that may be longer than the gaps between the curves below.
void PaintGround(QPainter& painter, const QPointF& corner, const QString& text) {
    constexpr int kOpacity = 190;
    const QFontMetricsF metrics = painter.fontMetrics();
    const QRectF box(corner, QSizeF(metrics.horizontalAdvance(text), metrics.height()));
    painter.fillRect(box.adjusted(-1.0, 0.0, 1.0, 0.0), QColor(255, 255, 255, kOpacity));
}

void Play(Stage& stage, const TextRecord& record) {
    const bool isImage = stage.target.image != nullptr;
    if (record.covered || (isImage && !stage.bounds.contains(QPointF(record.x, record.y)))) return;
    Flush(stage);
    QFont font = PictureFont(record.height);
    // The generic name is one that every viewer of a drawing knows.
    if (!isImage) font.setFamily("sans-serif");
    stage.painter.setFont(font);
    // A text far off the picture may have a position near the largest integer.
    const double baseline = static_cast<double>(record.y) + stage.painter.fontMetrics().ascent();
    const QPointF at(record.x, baseline);
    const QString text = QString::fromStdU16String(record.text);
    if (record.origin.layer == DrawLayer::Name)
        PaintGround(stage.painter, QPointF(record.x, record.y), text);
    else
        PaintSeam(stage, at, text);
    stage.painter.setPen(ToQColor(record.color));
    stage.painter.drawText(at, text);
}

bool IsOf(const DrawRecord& record, DrawLayer layer) {
    return std::visit([layer](const auto& one) { return one.origin.layer == layer; }, record);
}

}  // namespace

void PlaySmooth(QPainter& painter, const DrawList& list) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // The margin is wider than the widest pen, so the clipped end of a line is never visible.
    constexpr double kMargin = 80.0;
    Stage stage{painter,
                QRectF(-kMargin, -kMargin, list.width + 2 * kMargin, list.height + 2 * kMargin)};
    stage.target = DirectImageOf(painter);
    if (const QImage* const image = stage.target.image)
        stage.mask = MakeCoverageMask(image->width(), image->height());
    const auto play = [&](const DrawRecord& record) {
        std::visit([&](const auto& one) { Play(stage, one); }, record);
    };
    const auto isText = [](const DrawRecord& record) {
        return IsOf(record, DrawLayer::Numbers) || IsOf(record, DrawLayer::Name);
    };
    for (const DrawRecord& record : list.records)
        if (!isText(record)) play(record);
    for (const DrawRecord& record : list.records)
        if (isText(record)) play(record);
    Flush(stage);
    painter.restore();
}

}  // namespace kalvex
