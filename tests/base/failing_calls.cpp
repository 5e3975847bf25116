// Only one test runs at a time, so one plan serves all.
#include "base/failing_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>

namespace {

struct Plan {
    bool active = false;
    int left = 0;
    int errorNumber = 0;
    bool reached = false;
};

Plan& ThePlan() {
    static Plan plan;
    return plan;
}

/// Whether the present call is the one that fails.
bool Fails() {
    Plan& plan = ThePlan();
    if (!plan.active || plan.left-- != 0) return false;
    plan.reached = true;
    errno = plan.errorNumber;
    return true;
}

template <typename Call>
Call* Real(Call*, const char* name) {
    return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

namespace kalvex {

void FailCall(int number, int errorNumber) {
    ThePlan() = {true, number, errorNumber, false};
}

bool StopFailing() {
    ThePlan().active = false;
    return ThePlan().reached;
}

}  // namespace kalvex

extern "C" {

int openat(int folder, const char* name, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return Fails() ? -1 : Real(&openat, "openat")(folder, name, flags, mode);
}

ssize_t write(int file, const void* bytes, std::size_t count) {
    return Fails() ? -1 : Real(&write, "write")(file, bytes, count);
}

int fsync(int file) {
    return Fails() ? -1 : Real(&fsync, "fsync")(file);
}

int linkat(int from, const char* old, int to, const char* name, int flags) {
    return Fails() ? -1 : Real(&linkat, "linkat")(from, old, to, name, flags);
}

int renameat(int from, const char* old, int to, const char* name) {
    return Fails() ? -1 : Real(&renameat, "renameat")(from, old, to, name);
}

}  // extern "C"
