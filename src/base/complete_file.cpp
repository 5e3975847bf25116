// The new file is made beside the old one under a name of its own and renamed at the end.
// Everything goes through the plain calls of the system, and the result of each is looked at: a
// full disk is often told by fsync alone.
#include "base/complete_file.h"

#include <cerrno>
#include <optional>

#include "base/file_attributes.h"
#include "base/system_error.h"
#include "base/temporary_file.h"
#include "base/write_target.h"

namespace kalvex {
namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kPrivateMode = 0600;

/// A new file that is removed again unless it gets its final name.
struct PendingFile {
    const Descriptor& folder;
    TemporaryFile temporary;
    explicit PendingFile(const Descriptor& in, mode_t mode)
        : folder(in), temporary(MakeTemporaryFile(in.Number(), mode)) {}
    ~PendingFile() { Remove(); }
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    void Remove() {
        if (!temporary.name.empty()) unlinkat(folder.Number(), temporary.name.c_str(), 0);
        temporary.name.clear();
    }
};

/// 0 or an error number.
int WriteAll(int file, std::string_view bytes, bool isStream) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        // A signal ends the wait for the reader of a pipe; a file is written to its end.
        if (written < 0 && errno == EINTR && !isStream) continue;
        if (written < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// 0 or an error number. A stream that cannot be synced is none.
int Sync(int file) {
    int result = fsync(file);
    while (result != 0 && errno == EINTR)
        result = fsync(file);
    return result == 0 || IsUnsupported(errno) ? 0 : errno;
}

WriteResult Fill(int file, const FillFile& fill, bool isStream) {
    int error = 0;
    const bool filled = fill([&](std::string_view bytes) {
        if (error == 0) error = WriteAll(file, bytes, isStream);
        return error == 0;
    });
    if (error == 0 && filled) error = Sync(file);
    if (error != 0) return {ReasonOf(error)};
    if (!filled) return {"its contents could not be made; perhaps there is too little memory"};
    return {};
}

WriteResult Failed(int errorNumber) {
    return {ReasonOf(errorNumber)};
}

/// The folder, opened so that it can be synced. Nothing is open for a folder that must not be read.
std::optional<Descriptor> OpenForSync(const Descriptor& folder) {
    Descriptor opened(openat(folder.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    opened.LeaveStandardNumbers();
    if (!opened.IsOpen() && errno != EACCES) return std::nullopt;
    return opened;
}

/// A second name for the old file, from which it comes back when the new one cannot be kept. Empty
/// when there is none, because the file is new or the file system has no second names.
std::string NameForOldFile(const WriteTarget& target) {
    if (target.kind != TargetKind::OldFile) return {};
    const int folder = target.folder.Number();
    std::string name = TemporaryName();
    const bool named = linkat(folder, target.name.c_str(), folder, name.c_str(), 0) == 0;
    return named ? name : std::string();
}

/// Undoes a renaming that may not survive a loss of power.
void BringBack(const WriteTarget& target, const std::string& second) {
    const int folder = target.folder.Number();
    if (!second.empty()) {
        renameat(folder, second.c_str(), folder, target.name.c_str());
    } else if (target.kind == TargetKind::NewFile) {
        unlinkat(folder, target.name.c_str(), 0);
    }
}

WriteResult Rename(const WriteTarget& target, PendingFile& pending) {
    const std::optional<Descriptor> synced = OpenForSync(target.folder);
    if (!synced) return Failed(errno);
    const int folder = target.folder.Number();
    const std::string second = NameForOldFile(target);
    if (renameat(folder, pending.temporary.name.c_str(), folder, target.name.c_str()) != 0) {
        const int error = errno;
        if (!second.empty()) unlinkat(folder, second.c_str(), 0);
        return Failed(error);
    }
    pending.temporary.name.clear();
    if (const int error = synced->IsOpen() ? Sync(synced->Number()) : 0; error != 0) {
        BringBack(target, second);
        return Failed(error);
    }
    if (!second.empty()) unlinkat(folder, second.c_str(), 0);
    return {};
}

/// The old file, opened for writing to learn whether this user may change it.
Descriptor OpenOldFile(const WriteTarget& target) {
    constexpr int kFlags = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor file(openat(target.folder.Number(), target.name.c_str(), kFlags));
    file.LeaveStandardNumbers();
    return file;
}

WriteResult Replace(const WriteTarget& target, const FillFile& fill) {
    const bool isOld = target.kind == TargetKind::OldFile;
    const Descriptor old = isOld ? OpenOldFile(target) : Descriptor();
    if (isOld && !old.IsOpen()) return Failed(errno);
    PendingFile pending(target.folder, isOld ? kPrivateMode : kNewFileMode);
    if (!pending.temporary.file.IsOpen()) return Failed(errno);
    const int file = pending.temporary.file.Number();
    if (isOld) {
        std::string failure = CopyAttributes(old.Number(), target.facts, file);
        if (!failure.empty()) return {std::move(failure)};
    }
    WriteResult filled = Fill(file, fill, false);
    return filled ? Rename(target, pending) : filled;
}

WriteResult WriteDevice(const WriteTarget& target, const FillFile& fill) {
    constexpr int kFlags = O_WRONLY | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC;
    Descriptor device(openat(target.folder.Number(), target.name.c_str(), kFlags));
    device.LeaveStandardNumbers();
    if (!device.IsOpen()) return Failed(errno);
    return WriteStream(device.Number(), fill);
}

/// Whether an open file is written to and is the same as one with a name.
bool GoesTo(int number, const struct stat& named) {
    struct stat opened {};
    const int flags = fcntl(number, F_GETFL);
    return flags >= 0 && (flags & O_ACCMODE) != O_RDONLY && fstat(number, &opened) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace

WriteResult WriteCompleteFile(const std::string& path, const FillFile& fill) {
    const WriteTarget target = FindWriteTarget(path);
    if (target.kind == TargetKind::None) return {target.failure};
    if (target.kind == TargetKind::Device || target.kind == TargetKind::OpenDescriptor)
        return {"not a regular file"};
    return Replace(target, fill);
}

WriteResult WriteCompleteFile(const std::string& path, std::string_view bytes) {
    return WriteCompleteFile(path, [bytes](const TakeBytes& take) { return take(bytes); });
}

WriteResult WriteFileOrStream(const std::string& path, const FillFile& fill) {
    const WriteTarget target = FindWriteTarget(path);
    if (target.kind == TargetKind::OpenDescriptor) return WriteStream(target.number, fill);
    if (target.kind == TargetKind::Device) return WriteDevice(target, fill);
    if (target.kind == TargetKind::OldFile) {
        for (const int number : {STDOUT_FILENO, STDERR_FILENO})
            if (GoesTo(number, target.facts)) return WriteStream(number, fill);
    }
    return WriteCompleteFile(path, fill);
}

WriteResult WriteStream(int number, const FillFile& fill) {
    return Fill(number, fill, true);
}

}  // namespace kalvex
