// Files that are written as a whole or not at all.
#pragma once

#include <QIODevice>
#include <QString>
#include <functional>
#include <string_view>

namespace kalvex {

/// Writes a new file, which `write` fills, and replaces the old one by it only when all of it has
/// been written. A device or a pipe is written to directly and never replaced. False when anything
/// failed, for example when the folder does not allow files to be replaced; the old file stays
/// then.
[[nodiscard]] bool WriteCompleteFile(const QString& path,
                                     const std::function<bool(QIODevice& file)>& write);

/// Writes the given bytes in the same way.
[[nodiscard]] bool WriteCompleteFile(const QString& path, std::string_view bytes);

}  // namespace kalvex
