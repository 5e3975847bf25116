// The bitmap is written field by field in little-endian order, whatever the machine's.
#include "painter/picture_file.h"

#include <QImageWriter>
#include <QtEndian>
#include <cstdint>

#include "settings/complete_file.h"

namespace kalvex {
namespace {

constexpr quint32 kHeaderSize = 54;

template <typename Integer>
void Append(QByteArray& bytes, Integer value) {
    const Integer little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

/// KEEP: the width is rounded up to whole groups of four pixels, not the row to four bytes;
/// readers of these files know the number.
std::int64_t ImageSize(std::int64_t width, std::int64_t height) {
    return ((width + 3) & ~std::int64_t{3}) * height * 24 / 8;
}

QByteArray BitmapHeader(const QImage& picture) {
    QByteArray header("BM");
    // KEEP: the file-size field holds the size of the headers alone.
    Append<quint32>(header, kHeaderSize);
    Append<quint32>(header, 0);
    Append<quint32>(header, kHeaderSize);
    Append<quint32>(header, 40);
    Append<qint32>(header, picture.width());
    Append<qint32>(header, picture.height());
    Append<quint16>(header, 1);
    Append<quint16>(header, 24);
    Append<quint32>(header, 0);
    Append<quint32>(header, static_cast<quint32>(ImageSize(picture.width(), picture.height())));
    Append<quint32>(header, 3780);
    Append<quint32>(header, 3780);
    Append<quint32>(header, 0);
    Append<quint32>(header, 0);
    return header;
}

bool WriteAll(QIODevice& file, const QByteArray& bytes) {
    return file.write(bytes) == bytes.size();
}

/// Rows from the lowest to the highest, each padded to whole groups of four bytes.
bool WriteRows(QIODevice& file, const QImage& picture) {
    const QImage pixels = picture.convertToFormat(QImage::Format_BGR888);
    const qsizetype rowSize = (static_cast<qsizetype>(pixels.width()) * 3 + 3) & ~qsizetype{3};
    for (int y = pixels.height() - 1; y >= 0; --y) {
        QByteArray row(reinterpret_cast<const char*>(pixels.constScanLine(y)),
                       static_cast<qsizetype>(pixels.width()) * 3);
        row.append(rowSize - row.size(), '\0');
        if (!WriteAll(file, row)) return false;
    }
    const std::int64_t rest =
        ImageSize(pixels.width(), pixels.height()) - rowSize * pixels.height();
    return WriteAll(file, QByteArray(static_cast<qsizetype>(rest), '\0'));
}

}  // namespace

bool WriteBitmap(const QString& path, const QImage& picture) {
    if (picture.isNull()) return false;
    return WriteCompleteFile(path, [&picture](QIODevice& file) {
        return WriteAll(file, BitmapHeader(picture)) && WriteRows(file, picture);
    });
}

bool WritePng(const QString& path, const QImage& picture) {
    if (picture.isNull()) return false;
    return WriteCompleteFile(path, [&picture](QIODevice& file) {
        QImageWriter writer(&file, "png");
        writer.setQuality(80);  // the fastest real compression; line drawings stay small with it
        return writer.write(picture);
    });
}

}  // namespace kalvex
