// Qt's SVG and PDF generators draw into memory, because they do not tell when their device fails.
#include "painter/vector_file.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "painter/smooth_play.h"

namespace kalvex {
namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kPointsPerPixel = 72.0 / kPixelsPerInch;

bool TakeAll(const QByteArray& bytes, const TakeBytes& take) {
    return !bytes.isEmpty() && take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

bool HasSize(const DrawList& list) {
    return list.width > 0 && list.height > 0;
}

/// False when the device cannot be drawn on or could not be finished.
bool Play(QPaintDevice& device, const DrawList& list) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    painter.fillRect(QRect(0, 0, list.width, list.height), Qt::white);
    painter.setClipRect(QRect(0, 0, list.width, list.height));
    PlaySmooth(painter, list);
    return painter.end();
}

}  // namespace

bool MakeSvg(const DrawList& list, const TakeBytes& take) {
    if (!HasSize(list)) return false;
    QBuffer bytes;
    QSvgGenerator generator;
    generator.setOutputDevice(&bytes);
    generator.setSize(QSize(list.width, list.height));
    generator.setViewBox(QRect(0, 0, list.width, list.height));
    generator.setResolution(kPixelsPerInch);
    generator.setTitle("Kalvex");
    return Play(generator, list) && TakeAll(bytes.data(), take);
}

bool MakePdf(const DrawList& list, const TakeBytes& take) {
    if (!HasSize(list)) return false;
    QBuffer bytes;
    if (!bytes.open(QIODevice::WriteOnly)) return false;
    {
        QPdfWriter writer(&bytes);
        writer.setCreator("Kalvex");
        writer.setTitle("Kalvex");
        writer.setResolution(kPixelsPerInch);
        const QSizeF points(list.width * kPointsPerPixel, list.height * kPointsPerPixel);
        writer.setPageSize(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        if (!Play(writer, list)) return false;
    }
    return TakeAll(bytes.data(), take);
}

}  // namespace kalvex
