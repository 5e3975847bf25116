// QSaveFile writes a new file beside the old one and renames it. A device must not be replaced like
// that, so it is opened directly.
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
    if (!file.open(QIODevice::WriteOnly)) return false;
    // A full disk may cut the file short without an error, so its size is compared with what was
    // written.
    if (!write(file) || !file.flush() || file.size() != file.pos()) file.cancelWriting();
    return file.commit();
}

bool WriteCompleteFile(const QString& path, std::string_view bytes) {
    return WriteCompleteFile(path, [bytes](QIODevice& file) {
        const auto size = static_cast<qint64>(bytes.size());
        return file.write(bytes.data(), size) == size;
    });
}

}  // namespace kalvex
