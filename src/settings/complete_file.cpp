// QSaveFile writes beside the file and renames; that is why devices must not come to it.
#include "settings/complete_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace kalvex {

bool WriteCompleteFile(const QString& path, const std::function<bool(QIODevice& file)>& write) {
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) {
        QFile device(path);
        return device.open(QIODevice::WriteOnly) && write(device) && device.flush();
    }
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && write(file) && file.flush() && file.commit();
}

bool WriteCompleteFile(const QString& path, std::string_view bytes) {
    return WriteCompleteFile(path, [bytes](QIODevice& file) {
        const auto size = static_cast<qint64>(bytes.size());
        return file.write(bytes.data(), size) == size;
    });
}

}  // namespace kalvex
