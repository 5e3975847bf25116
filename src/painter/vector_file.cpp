// Qt's SVG and PDF generators draw into memory. The file is written at the end, as a whole, so that
// a failure leaves the old file unchanged.
#include "painter/vector_file.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "painter/vector_play.h"
#include "settings/complete_file.h"

namespace kalvex {
namespace {

constexpr int kPixelsPerInch = 96;
constexpr double kPointsPerPixel = 72.0 / kPixelsPerInch;

bool WriteFile(const QString& path, const QByteArray& bytes) {
    return WriteCompleteFile(
        path, [&bytes](QIODevice& file) { return file.write(bytes) == bytes.size(); });
}

bool HasSize(const DrawList& list) {
    return list.width > 0 && list.height > 0;
}

void Play(QPaintDevice& device, const DrawList& list) {
    QPainter painter(&device);
    painter.fillRect(QRect(0, 0, list.width, list.height), Qt::white);
    painter.setClipRect(QRect(0, 0, list.width, list.height));
    PlayVector(painter, list);
}

}  // namespace

bool WriteSvg(const QString& path, const DrawList& list) {
    if (!HasSize(list)) return false;
    QBuffer bytes;
    QSvgGenerator generator;
    generator.setOutputDevice(&bytes);
    generator.setSize(QSize(list.width, list.height));
    generator.setViewBox(QRect(0, 0, list.width, list.height));
    generator.setResolution(kPixelsPerInch);
    generator.setTitle("Kalvex");
    Play(generator, list);
    return WriteFile(path, bytes.data());
}

bool WritePdf(const QString& path, const DrawList& list) {
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
        Play(writer, list);
    }
    return WriteFile(path, bytes.data());
}

}  // namespace kalvex
