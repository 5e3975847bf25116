// The bitmap is written field by field in little-endian order, on machines of either byte order.
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

/// Bytes of pixel data that the header announces.
/// KEEP: the width is rounded up to a multiple of four pixels, where a row would only have to be
/// rounded up to four bytes; programs that read these files expect this number.
std::int64_t ImageSize(std::int64_t width, std::int64_t height) {
    return ((width + 3) & ~std::int64_t{3}) * height * 24 / 8;
}

QByteArray BitmapHeader(const QImage& picture) {
    QByteArray header("BM");
    // KEEP: the file-size field holds the size of the headers only; readers of these files expect
    // it.
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

/// Writes the rows from the bottom up, each padded with zeros to a multiple of four bytes, and
/// zeros up to the size that the header announces.
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
        writer.setQuality(80);  // fast compression; line drawings still become small files
        return writer.write(picture);
    });
}

}  // namespace kalvex
