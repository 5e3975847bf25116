// Where Qt's texts meet the names of files.
#pragma once

#include <QString>
#include <string>

namespace kalvex {

/// The name of a file as the system takes it, for a path that Qt made. Qt cannot hold a name that
/// is not UTF-8: its path has replacement characters and leads to another file. For such a path the
/// result is empty, which is the name of no file.
[[nodiscard]] inline std::string FileNameOf(const QString& path) {
    return path.contains(QChar::ReplacementCharacter) ? std::string() : path.toStdString();
}

}  // namespace kalvex
