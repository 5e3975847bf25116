// A library that is loaded before all others (LD_PRELOAD) and lets one call of the program fail.
// The environment names it:
//   KALVEX_FAULT       KIND:N or KIND:N+   the N-th call of that kind fails (counted from 1); with
//   a
//                                          plus sign all later ones too
//   KALVEX_FAULT_FOLDER  only files are opened and read with failures whose paths begin like this;
//   with
//                      the other kinds it means nothing
//   KALVEX_FAULT_MARK  a file that is made when the first call fails, so that a test knows whether
//                      the program came so far
// Kinds: alloc (out of memory), open (too many files), read and write (error of the device), full
// (write to a full disk), short (a write that takes half of its bytes: not an error), interrupt (a
// read or a write interrupted by a signal: not an error), sync, rename, and kill (the process is
// killed at its N-th open, write, sync or rename).
#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/syscall.h>
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

enum class Kind { None, Alloc, Open, Read, Write, Full, Short, Interrupt, Sync, Rename, Kill };

struct Fault {
    Kind kind = Kind::None;
    long number = 0;
    bool lasting = false;
};

Kind KindOf(const char* name, size_t length) {
    static constexpr struct {
        const char* name;
        Kind kind;
    } kKinds[] = {{"alloc", Kind::Alloc},  {"open", Kind::Open}, {"read", Kind::Read},
                  {"write", Kind::Write},  {"full", Kind::Full}, {"short", Kind::Short},
                  {"sync", Kind::Sync},    {"kill", Kind::Kill}, {"interrupt", Kind::Interrupt},
                  {"rename", Kind::Rename}};
    for (const auto& row : kKinds)
        if (strlen(row.name) == length && strncmp(row.name, name, length) == 0) return row.kind;
    return Kind::None;
}

Fault ReadFault() {
    const char* const text = getenv("KALVEX_FAULT");
    const char* const colon = text == nullptr ? nullptr : strchr(text, ':');
    if (colon == nullptr) return {};
    return {KindOf(text, static_cast<size_t>(colon - text)), atol(colon + 1),
            strchr(colon, '+') != nullptr};
}

// Set before main, by the constructor; calls from before count as none.
Fault fault;
std::atomic<long> calls{0};

__attribute__((constructor)) void Prepare() {
    fault = ReadFault();
    // A program that waits for ever because of the fault is ended, and the test sees the signal.
    if (fault.kind != Kind::None) alarm(20);
}

void Mark() {
    const char* const path = getenv("KALVEX_FAULT_MARK");
    if (path == nullptr) return;
    const long file = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT, 0600);
    if (file >= 0) syscall(SYS_close, file);
}

/// Whether this call of the kind fails.
bool Fails(Kind kind) {
    if (fault.kind != kind) return false;
    const long call = ++calls;
    if (call != fault.number && !(fault.lasting && call > fault.number)) return false;
    if (call == fault.number) Mark();
    return true;
}

void KillHere() {
    if (Fails(Kind::Kill)) kill(getpid(), SIGKILL);
}

bool FailsWith(Kind kind, int error) {
    if (!Fails(kind)) return false;
    errno = error;
    return true;
}

/// The function that this library stands before.
template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// The files that were opened in the folder of KALVEX_FAULT_FOLDER, by their descriptors.
constexpr int kMostFiles = 1024;
std::atomic<bool> chosen[kMostFiles];

bool IsChosen(const char* path) {
    const char* const folder = getenv("KALVEX_FAULT_FOLDER");
    return folder == nullptr || strncmp(path, folder, strlen(folder)) == 0;
}

bool OpenFails(const char* path) {
    KillHere();
    return IsChosen(path) && FailsWith(Kind::Open, EMFILE);
}

/// Notes the result of an open.
int Opened(const char* path, int file) {
    if (file >= 0 && file < kMostFiles) chosen[file] = IsChosen(path);
    return file;
}

bool ReadFails(int file) {
    if (file > STDERR_FILENO && file < kMostFiles && !chosen[file]) return false;
    return FailsWith(Kind::Read, EIO) || FailsWith(Kind::Interrupt, EINTR);
}

/// Messages and results on standard output and error are no files that could be lost.
bool WriteFails(int file) {
    if (file <= STDERR_FILENO) return false;
    KillHere();
    return FailsWith(Kind::Write, EIO) || FailsWith(Kind::Full, ENOSPC) ||
           FailsWith(Kind::Interrupt, EINTR);
}

mode_t ModeOf(int flags, va_list arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

extern "C" {

void* malloc(size_t size) {
    return FailsWith(Kind::Alloc, ENOMEM) ? nullptr : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    return FailsWith(Kind::Alloc, ENOMEM) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* old, size_t size) {
    return FailsWith(Kind::Alloc, ENOMEM) ? nullptr : __libc_realloc(old, size);
}

void* memalign(size_t alignment, size_t size) {
    return FailsWith(Kind::Alloc, ENOMEM) ? nullptr : __libc_memalign(alignment, size);
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
        if (OpenFails(path)) return -1;                                    \
        static auto* const real = Real<int(const char*, int, ...)>(#name); \
        return Opened(path, real(path, flags, mode));                      \
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
        if (OpenFails(path)) return -1;                                         \
        static auto* const real = Real<int(int, const char*, int, ...)>(#name); \
        return Opened(path, real(folder, path, flags, mode));                   \
    }
OPENAT_FUNCTION(openat)
OPENAT_FUNCTION(openat64)
#undef OPENAT_FUNCTION

#define FOPEN_FUNCTION(name)                                                    \
    FILE* name(const char* path, const char* mode) {                            \
        if (OpenFails(path)) return nullptr;                                    \
        static auto* const real = Real<FILE*(const char*, const char*)>(#name); \
        FILE* const file = real(path, mode);                                    \
        if (file != nullptr) Opened(path, fileno(file));                        \
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
    if (file > STDERR_FILENO && size > 1 && Fails(Kind::Short)) size /= 2;
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
        if (FailsWith(Kind::Sync, EIO)) return -1;       \
        static auto* const real = Real<int(int)>(#name); \
        return real(file);                               \
    }
SYNC_FUNCTION(fsync)
SYNC_FUNCTION(fdatasync)
#undef SYNC_FUNCTION

int rename(const char* from, const char* to) {
    KillHere();
    if (FailsWith(Kind::Rename, EACCES)) return -1;
    static auto* const real = Real<int(const char*, const char*)>("rename");
    return real(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
    KillHere();
    if (FailsWith(Kind::Rename, EACCES)) return -1;
    static auto* const real = Real<int(int, const char*, int, const char*)>("renameat");
    return real(fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    KillHere();
    if (FailsWith(Kind::Rename, EACCES)) return -1;
    static auto* const real = Real<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return real(fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    KillHere();
    if (FailsWith(Kind::Rename, EACCES)) return -1;
    static auto* const real = Real<int(int, const char*, int, const char*, int)>("linkat");
    return real(fromFolder, from, toFolder, to, flags);
}

}  // extern "C"
