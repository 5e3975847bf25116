// The functions of the C library that fail when they are told to. fault_main.cpp has the ways to
// tell them.
#include "faults/fault_library.h"

#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

// The C library's own allocator behind the functions that this library replaces.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* old, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
}

namespace {

using kalvex::Fails;
using kalvex::Fault;
using kalvex::Real;

void KillHere() {
    if (Fails(Fault::Kill)) kill(getpid(), SIGKILL);
}

bool FailsWith(Fault kind, int error) {
    if (!Fails(kind)) return false;
    errno = error;
    return true;
}

/// The files that were opened in the folder of KALVEX_FAULT_FOLDER, by their descriptors.
constexpr int kMostFiles = 1024;
std::atomic<bool> chosen[kMostFiles];

/// Whether a path, which may be relative to an open folder, is in KALVEX_FAULT_FOLDER.
bool IsChosen(int folder, const char* path) {
    const char* const wanted = getenv("KALVEX_FAULT_FOLDER");
    if (wanted == nullptr) return true;
    const size_t length = strlen(wanted);
    if (*path == '/') return strncmp(path, wanted, length) == 0;
    char link[40] = "/proc/self/cwd";
    if (folder != AT_FDCWD) snprintf(link, sizeof link, "/proc/self/fd/%d", folder);
    char name[PATH_MAX];
    const ssize_t read = readlink(link, name, sizeof name);
    return read >= static_cast<ssize_t>(length) && strncmp(name, wanted, length) == 0;
}

/// Whether a new file is outside of KALVEX_FAULT_FOLDER. Nothing may be written there: a library
/// that got no memory would replace its own files, which all programs use, by damaged ones
/// (fontconfig's list of the fonts, for instance). To the program it is a disk without writing.
bool IsForeign(const char* path) {
    if (IsChosen(AT_FDCWD, path)) return false;
    errno = EROFS;
    return true;
}

bool OpenFails(int folder, const char* path) {
    KillHere();
    return IsChosen(folder, path) && FailsWith(Fault::Open, EMFILE);
}

/// Notes the result of an open.
int Opened(int folder, const char* path, int file) {
    if (file >= 0 && file < kMostFiles) chosen[file] = IsChosen(folder, path);
    return file;
}

bool ReadFails(int file) {
    if (file > STDERR_FILENO && file < kMostFiles && !chosen[file]) return false;
    return FailsWith(Fault::Read, EIO) || FailsWith(Fault::Interrupt, EINTR);
}

/// Messages and results on standard output and error are no files that could be lost.
bool WriteFails(int file) {
    if (file <= STDERR_FILENO) return false;
    KillHere();
    return FailsWith(Fault::Write, EIO) || FailsWith(Fault::Full, ENOSPC) ||
           FailsWith(Fault::Interrupt, EINTR);
}

mode_t ModeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

extern "C" {

void* malloc(size_t size) {
    return FailsWith(Fault::Alloc, ENOMEM) ? nullptr : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    return FailsWith(Fault::Alloc, ENOMEM) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* old, size_t size) {
    return FailsWith(Fault::Alloc, ENOMEM) ? nullptr : __libc_realloc(old, size);
}

void* memalign(size_t alignment, size_t size) {
    return FailsWith(Fault::Alloc, ENOMEM) ? nullptr : __libc_memalign(alignment, size);
}

void* aligned_alloc(size_t alignment, size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** result, size_t alignment, size_t size) {
    void* const memory = memalign(alignment, size);
    if (memory == nullptr) return ENOMEM;
    *result = memory;
    return 0;
}

#define OPEN_FUNCTION(name)                                                \
    int name(const char* path, int flags, ...) {                           \
        va_list arguments;                                                 \
        va_start(arguments, flags);                                        \
        const mode_t mode = ModeOf(flags, arguments);                      \
        va_end(arguments);                                                 \
        if (OpenFails(AT_FDCWD, path)) return -1;                          \
        static auto* const real = Real<int(const char*, int, ...)>(#name); \
        return Opened(AT_FDCWD, path, real(path, flags, mode));            \
    }
OPEN_FUNCTION(open)
OPEN_FUNCTION(open64)
#undef OPEN_FUNCTION

#define OPENAT_FUNCTION(name)                                                   \
    int name(int folder, const char* path, int flags, ...) {                    \
        va_list arguments;                                                      \
        va_start(arguments, flags);                                             \
        const mode_t mode = ModeOf(flags, arguments);                           \
        va_end(arguments);                                                      \
        if (OpenFails(folder, path)) return -1;                                 \
        static auto* const real = Real<int(int, const char*, int, ...)>(#name); \
        return Opened(folder, path, real(folder, path, flags, mode));           \
    }
OPENAT_FUNCTION(openat)
OPENAT_FUNCTION(openat64)
#undef OPENAT_FUNCTION

#define FOPEN_FUNCTION(name)                                                    \
    FILE* name(const char* path, const char* mode) {                            \
        if (OpenFails(AT_FDCWD, path)) return nullptr;                          \
        static auto* const real = Real<FILE*(const char*, const char*)>(#name); \
        FILE* const file = real(path, mode);                                    \
        if (file != nullptr) Opened(AT_FDCWD, path, fileno(file));              \
        return file;                                                            \
    }
FOPEN_FUNCTION(fopen)
FOPEN_FUNCTION(fopen64)
#undef FOPEN_FUNCTION

ssize_t read(int file, void* bytes, size_t size) {
    if (ReadFails(file)) return -1;
    static auto* const real = Real<ssize_t(int, void*, size_t)>("read");
    return real(file, bytes, size);
}

ssize_t write(int file, const void* bytes, size_t size) {
    if (WriteFails(file)) return -1;
    if (file > STDERR_FILENO && size > 1 && Fails(Fault::Short)) size /= 2;
    static auto* const real = Real<ssize_t(int, const void*, size_t)>("write");
    return real(file, bytes, size);
}

ssize_t writev(int file, const struct iovec* parts, int count) {
    if (WriteFails(file)) return -1;
    static auto* const real = Real<ssize_t(int, const struct iovec*, int)>("writev");
    return real(file, parts, count);
}

#define SYNC_FUNCTION(name)                              \
    int name(int file) {                                 \
        KillHere();                                      \
        if (FailsWith(Fault::Sync, EIO)) return -1;      \
        static auto* const real = Real<int(int)>(#name); \
        return real(file);                               \
    }
SYNC_FUNCTION(fsync)
SYNC_FUNCTION(fdatasync)
#undef SYNC_FUNCTION

/// Libraries make files with these.
#define MKOSTEMP_FUNCTION(name)                                 \
    int name(char* path, int flags) {                           \
        KillHere();                                             \
        if (IsForeign(path)) return -1;                         \
        static auto* const real = Real<int(char*, int)>(#name); \
        return Opened(AT_FDCWD, path, real(path, flags));       \
    }
MKOSTEMP_FUNCTION(mkostemp)
MKOSTEMP_FUNCTION(mkostemp64)
#undef MKOSTEMP_FUNCTION

int rename(const char* from, const char* to) {
    if (IsForeign(to)) return -1;
    KillHere();
    if (FailsWith(Fault::Rename, EACCES)) return -1;
    static auto* const real = Real<int(const char*, const char*)>("rename");
    return real(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
    KillHere();
    if (FailsWith(Fault::Rename, EACCES)) return -1;
    static auto* const real = Real<int(int, const char*, int, const char*)>("renameat");
    return real(fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    KillHere();
    if (FailsWith(Fault::Rename, EACCES)) return -1;
    static auto* const real = Real<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return real(fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    KillHere();
    if (FailsWith(Fault::Link, EPERM)) return -1;
    static auto* const real = Real<int(int, const char*, int, const char*, int)>("linkat");
    return real(fromFolder, from, toFolder, to, flags);
}

}  // extern "C"
