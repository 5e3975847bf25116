// Picture files.
#pragma once

#include <QImage>
#include <QString>

namespace kalvex {

/// Writes the program's own 24-bit bitmap format (file-size field 54, rows bottom-up, the size of
/// the pixels as its own formula has it). False when the file cannot be written.
bool WriteBitmap(const QString& path, const QImage& picture);

/// Writes a PNG. False when the file cannot be written.
bool WritePng(const QString& path, const QImage& picture);

}  // namespace kalvex
