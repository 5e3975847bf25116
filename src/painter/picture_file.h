// Picture files.
#pragma once

#include <QImage>
#include <QString>

namespace kalvex {

/// Writes a bitmap of 24 bits per pixel with rows from the bottom up. Its header differs from other
/// programs': the file-size field is always 54, and the size of the pixel data is that of a width
/// rounded up to a multiple of four pixels. False when the file cannot be written.
[[nodiscard]] bool WriteBitmap(const QString& path, const QImage& picture);

/// Writes a PNG. False when the file cannot be written.
[[nodiscard]] bool WritePng(const QString& path, const QImage& picture);

}  // namespace kalvex
