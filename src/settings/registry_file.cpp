// The whole file is read once and read again only when its time or size changed. A write changes
// the values in memory and then replaces the file as a whole; when that fails, the values in memory
// are put back, so memory and disk never differ. A value that already stands in the file is not
// written again. QSettings is not used, because it does not notice when a full disk has cut the new
// file short, and replaces the old file by it.
#include "settings/registry_file.h"

#include <QByteArray>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "numbers/decimal.h"
#include "numbers/truncate.h"
#include "resources/strings.h"
#include "settings/complete_file.h"
#include "settings/ini_text.h"

namespace kalvex {
namespace {

/// The largest number of bytes that is read. A settings file has about two kilobytes.
constexpr qint64 kMostBytes = 1 << 20;

struct FileStamp {
    bool exists = false;
    qint64 size = 0;
    QDateTime time;
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

struct FileStore {
    QString file;
    bool loaded = false;
    FileStamp stamp;
    IniText ini;
    std::set<std::string> created;  ///< sections made in this run, perhaps still empty
    int depth = 0;                  ///< batches that are open
    std::optional<IniText> before;  ///< the contents of the file while memory has newer ones
};

/// The main key is the section [Kalvex], the function keys are [Function1] to [Function9].
std::string SectionOf(std::string_view key) {
    return key.empty() ? "Kalvex" : std::string("Function").append(key);
}

FileStamp StampOf(const QString& file) {
    const QFileInfo info(file);
    return {info.exists(), info.isFile() ? info.size() : 0, info.lastModified()};
}

void Refresh(FileStore& store) {
    if (store.depth > 0) return;
    const FileStamp stamp = StampOf(store.file);
    if (store.loaded && stamp == store.stamp) return;
    store.loaded = true;
    store.stamp = stamp;
    QFile file(store.file);
    const QByteArray bytes =
        stamp.exists && file.open(QIODevice::ReadOnly) ? file.read(kMostBytes) : QByteArray();
    store.ini = ReadIni({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

/// The settings are a file of their own: a device or a pipe at their path is left alone.
bool Save(const FileStore& store) {
    const QFileInfo old(store.file);
    if (old.exists() && !old.isFile()) return false;
    QDir().mkpath(old.absolutePath());
    return WriteCompleteFile(store.file, WriteIni(store.ini));
}

/// Writes the postponed values into the file. When that fails, memory gets the old values back.
bool Flush(FileStore& store) {
    if (!store.before) return true;
    const bool saved = Save(store);
    if (!saved) {
        store.ini = std::move(*store.before);
        store.created.clear();
    }
    store.before.reset();
    store.stamp = StampOf(store.file);
    return saved;
}

bool Write(FileStore& store, std::string_view key, std::string_view name,
           std::u16string_view text) {
    Refresh(store);
    const std::string section = SectionOf(key);
    const IniValue* const held = FindIniValue(store.ini, section, name);
    if (held == nullptr || held->text != text) {
        if (!store.before) store.before = store.ini;
        SetIniValue(store.ini, section, name, text);
    }
    return store.depth > 0 || Flush(store);
}

std::optional<std::u16string> Read(FileStore& store, std::string_view key, std::string_view name) {
    Refresh(store);
    const IniValue* const held = FindIniValue(store.ini, SectionOf(key), name);
    return held == nullptr ? std::nullopt : std::optional<std::u16string>(held->text);
}

/// A whole number of 32 bits in decimal digits; nothing for any other text.
std::optional<std::int32_t> NumberOf(std::u16string_view text) {
    if (text.find_first_not_of(u"-0123456789") != text.npos) return std::nullopt;
    const DecimalPrefix number = ParseDecimalPrefix(text);
    const bool fits = number.value >= std::numeric_limits<std::int32_t>::min() &&
                      number.value <= std::numeric_limits<std::int32_t>::max();
    if (number.length == 0 || number.length != text.size() || !fits) return std::nullopt;
    return TruncateToInt32(number.value);
}

bool HasKey(FileStore& store, std::string_view key) {
    Refresh(store);
    const std::string section = SectionOf(key);
    return store.created.contains(section) || HasIniSection(store.ini, section);
}

}  // namespace

std::string DefaultRegistryPath() {
    return (QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
            QStringLiteral("/kalvex/kalvex.ini"))
        .toStdString();
}

Registry OpenRegistryFile(const std::string& path) {
    const auto store = std::make_shared<FileStore>();
    store->file = QString::fromStdString(path);
    Registry registry;
    registry.open = [store](std::string_view key) { return HasKey(*store, key); };
    registry.create = [store](std::string_view key) {
        store->created.insert(SectionOf(key));
        return true;
    };
    registry.readNumber = [store](std::string_view key, std::string_view name) {
        const auto text = Read(*store, key, name);
        return text ? NumberOf(*text) : std::nullopt;
    };
    registry.readText = [store](std::string_view key, std::string_view name) {
        return Read(*store, key, name);
    };
    registry.writeNumber = [store](std::string_view key, std::string_view name,
                                   std::int32_t value) {
        return Write(*store, key, name, NumberText(value));
    };
    registry.writeText = [store](std::string_view key, std::string_view name,
                                 std::u16string_view value) {
        return Write(*store, key, name, value);
    };
    registry.isEmpty = [store] {
        Refresh(*store);
        // A file with bytes but without a value is a damaged store, not a new one.
        return store->ini.values.empty() && store->stamp.size == 0;
    };
    registry.begin = [store] {
        Refresh(*store);
        ++store->depth;
    };
    registry.commit = [store] { return --store->depth > 0 || Flush(*store); };
    return registry;
}

}  // namespace kalvex
