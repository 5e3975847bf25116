// The whole file is read once and read again only when it was replaced or changed. A write changes
// the values in memory and then replaces the file as a whole; when that fails, the values in memory
// are put back, so memory and disk never differ. A value that already stands in the file is not
// written again. A file that goes away or becomes empty takes nothing with it: memory keeps the
// values, and the next write makes the file again with all of them.
#include "settings/registry_file.h"

#include <unistd.h>

#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "base/complete_file.h"
#include "base/read_file.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"
#include "resources/strings.h"
#include "settings/config_folder.h"
#include "settings/damaged_file.h"
#include "settings/ini_text.h"

namespace kalvex {
namespace {

/// The largest number of bytes that is read. A settings file has about two kilobytes.
constexpr std::size_t kMostBytes = 1 << 20;

/// Tells one state of the file from another.
struct FileStamp {
    bool exists = false;
    bool regular = false;
    ino_t number = 0;
    off_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

struct FileStore {
    std::string file;
    bool loaded = false;
    bool unreadable = false;  ///< the file exists, but could not be read: nothing may be written
    bool damaged = false;     ///< the file holds what a write would lose
    FileStamp stamp;
    IniText ini;
    std::set<std::string> created;  ///< sections made in this run, perhaps still empty
    int depth = 0;                  ///< batches that are open
    std::optional<IniText> before;  ///< the contents of the file while memory has newer ones
    StoreRemarks remarks;
};

/// The main key is the section [Kalvex], the function keys are [Function1] to [Function9].
std::string SectionOf(std::string_view key) {
    return key.empty() ? "Kalvex" : std::string("Function").append(key);
}

FileStamp StampOf(const struct stat& facts) {
    const bool regular = S_ISREG(facts.st_mode);
    return {true,
            regular,
            facts.st_ino,
            regular ? facts.st_size : 0,
            facts.st_mtim.tv_sec,
            facts.st_mtim.tv_nsec};
}

FileStamp StampOf(const std::string& file) {
    struct stat facts {};
    return stat(file.c_str(), &facts) == 0 ? StampOf(facts) : FileStamp{};
}

/// Whether there is no file, or an empty one.
bool HoldsNothing(const FileStamp& stamp) {
    return !stamp.exists || (stamp.regular && stamp.size == 0);
}

/// Takes what was read of the file.
void Load(FileStore& store) {
    const FileContents contents = ReadWholeFile(store.file, kMostBytes);
    store.loaded = true;
    store.unreadable = !contents.failure.empty();
    store.stamp = contents.facts.st_ino != 0 ? StampOf(contents.facts) : FileStamp{};
    store.ini = ReadIni(store.unreadable ? std::string_view() : contents.bytes);
    const bool hasOnlyBytes = !contents.bytes.empty() && store.ini.values.empty();
    store.damaged = !contents.isWhole || !store.ini.understood || hasOnlyBytes;
    if (store.unreadable)
        store.remarks.notStored = store.file + " could not be read: " + contents.failure;
}

void Refresh(FileStore& store) {
    // What cannot be read once is not tried again: the program works with defaults by then, and
    // they must not take the place of what the file holds.
    if (store.depth > 0 || store.unreadable) return;
    const FileStamp stamp = StampOf(store.file);
    if (!store.loaded || (stamp != store.stamp && !HoldsNothing(stamp))) return Load(store);
    store.stamp = stamp;
}

/// Why the file could not be written; empty when it was.
std::string Save(FileStore& store) {
    std::error_code ignored;  // writing the file fails without its folder
    std::filesystem::create_directories(std::filesystem::path(store.file).parent_path(), ignored);
    const bool keeps = store.damaged && !HoldsNothing(StampOf(store.file));
    const std::string kept = keeps ? KeepDamagedFile(store.file) : std::string();
    if (keeps && kept.empty()) return "the damaged file could not be kept";
    WriteResult written = WriteCompleteFile(store.file, WriteIni(store.ini));
    if (written) {
        store.damaged = false;
        if (!kept.empty()) store.remarks.keptAs = kept;
    } else if (!kept.empty()) {
        unlink(kept.c_str());
    }
    return std::move(written.failure);
}

/// Writes the postponed values into the file. When that fails, memory gets the old values back.
bool Flush(FileStore& store) {
    if (!store.before) return true;
    store.remarks.notStored = Save(store);
    const bool saved = store.remarks.notStored.empty();
    if (!saved) {
        store.ini = std::move(*store.before);
        store.created.clear();
    }
    store.before.reset();
    store.stamp = StampOf(store.file);
    return saved;
}

/// Ends a batch. Memory gets the old values back.
void Discard(FileStore& store) {
    --store.depth;
    if (!store.before) return;
    store.ini = std::move(*store.before);
    store.before.reset();
    store.created.clear();
}

bool Write(FileStore& store, std::string_view key, std::string_view name,
           std::u16string_view text) {
    Refresh(store);
    if (store.unreadable) return false;
    const std::string section = SectionOf(key);
    const IniValue* const held = FindIniValue(store.ini, section, name);
    if (held == nullptr || held->text != text || HoldsNothing(store.stamp)) {
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

bool WriteNumber(FileStore& store, std::string_view key, std::string_view name,
                 std::int32_t value) {
    const auto held = Read(store, key, name);
    if (held && !NumberOf(*held)) store.damaged = true;
    return Write(store, key, name, NumberText(value));
}

bool CreateKey(FileStore& store, std::string_view key) {
    Refresh(store);
    if (!store.unreadable) store.created.insert(SectionOf(key));
    return !store.unreadable;
}

bool HasKey(FileStore& store, std::string_view key) {
    Refresh(store);
    const std::string section = SectionOf(key);
    return store.created.contains(section) || HasIniSection(store.ini, section);
}

}  // namespace

std::string DefaultRegistryPath() {
    return ConfigFolder() + "/kalvex/kalvex.ini";
}

Registry OpenRegistryFile(const std::string& path) {
    const auto store = std::make_shared<FileStore>();
    store->file = path;
    Registry registry;
    registry.open = [store](std::string_view key) { return HasKey(*store, key); };
    registry.create = [store](std::string_view key) { return CreateKey(*store, key); };
    registry.readNumber = [store](std::string_view key, std::string_view name) {
        const auto text = Read(*store, key, name);
        return text ? NumberOf(*text) : std::nullopt;
    };
    registry.readText = [store](std::string_view key, std::string_view name) {
        return Read(*store, key, name);
    };
    registry.writeNumber = [store](std::string_view key, std::string_view name,
                                   std::int32_t value) {
        return WriteNumber(*store, key, name, value);
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
    registry.discard = [store] { Discard(*store); };
    registry.remarks = [store] { return store->remarks; };
    return registry;
}

}  // namespace kalvex
