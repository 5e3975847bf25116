// Files are written by the function that the windows use for their exports.
#include "cli/write_file.h"

#include <QIODevice>
#include <QString>
#include <cstdio>

#include "settings/complete_file.h"

namespace kalvex {

ExitStatus WriteFile(const std::string& path, std::string_view bytes, const std::string& what) {
    if (WriteCompleteFile(QString::fromStdString(path), bytes)) return ExitStatus::Done;
    const std::string message = "The " + what + " could not be written: " + path + '\n';
    std::fputs(message.c_str(), stderr);
    return ExitStatus::NotWritten;
}

}  // namespace kalvex
