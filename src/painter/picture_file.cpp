// The bitmap is written field by field in little-endian order, on machines of either byte order.
#include "painter/picture_file.h"

#include <QtEndian>
#include <algorithm>
#include <cstdint>

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

/// Hands over the rows from the bottom up, each padded with zeros to a multiple of four bytes, and
/// zeros up to the size that the header announces. Rows are converted one at a time: a copy of the
/// whole picture could take hundreds of megabytes.
bool TakeRows(const QImage& picture, const TakeBytes& take) {
    const std::size_t width = static_cast<std::size_t>(picture.width()) * 3;
    std::string row((width + 3) & ~std::size_t{3}, '\0');
    for (int y = picture.height() - 1; y >= 0; --y) {
        const QImage pixels =
            picture.copy(0, y, picture.width(), 1).convertToFormat(QImage::Format_BGR888);
        if (pixels.isNull()) return false;
        std::copy_n(pixels.constBits(), width, row.begin());
        if (!take(row)) return false;
    }
    const std::int64_t rest = ImageSize(picture.width(), picture.height()) -
                              static_cast<std::int64_t>(row.size()) * picture.height();
    return take(std::string(static_cast<std::size_t>(rest), '\0'));
}

}  // namespace

bool MakeBitmap(const QImage& picture, const TakeBytes& take) {
    if (picture.isNull()) return false;
    const QByteArray header = BitmapHeader(picture);
    return take({header.constData(), static_cast<std::size_t>(header.size())}) &&
           TakeRows(picture, take);
}

}  // namespace kalvex
