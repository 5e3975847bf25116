// Files that are written as a whole or not at all.
#pragma once

#include <QIODevice>
#include <QString>
#include <functional>
#include <string_view>

namespace kalvex {

/// Opens a file, lets `write` fill it and puts it in the place of an old one only when all of it is
/// on the disk. What is no ordinary file (a device, a pipe) is written straight to and never
/// replaced. False when anything failed, also when the folder does not let a file be replaced; an
/// old file survives then.
bool WriteCompleteFile(const QString& path, const std::function<bool(QIODevice& file)>& write);

/// The same for bytes that are there.
bool WriteCompleteFile(const QString& path, std::string_view bytes);

}  // namespace kalvex
