// A signal handler gets no argument of the program's own, so what it needs is process-wide. It
// calls only functions that are allowed in a handler.
#include "base/stop_signal.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstring>

namespace kalvex {
namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

std::atomic<const char*> endLine = nullptr;
std::atomic<int> delays = 0;
std::atomic<int> waiting = 0;  ///< the signal that waits for the last delay to end; 0: none
std::atomic<int> removedIn = -1;
std::array<char, 64> removedName = {};

static_assert(std::atomic<int>::is_always_lock_free &&
                  std::atomic<const char*>::is_always_lock_free,
              "only such variables may be used in a signal handler");

[[noreturn]] void End(int number) {
    const char* const line = endLine;
    // Nobody may be reading a full pipe, and the end must not wait for that.
    pollfd room{STDERR_FILENO, POLLOUT, 0};
    if (line != nullptr && poll(&room, 1, 0) == 1) {
        const ssize_t written = write(STDERR_FILENO, line, std::strlen(line));
        static_cast<void>(written);
    }
    if (removedIn >= 0) unlinkat(removedIn, removedName.data(), 0);
    struct sigaction usual {};
    usual.sa_handler = SIG_DFL;
    sigaction(number, &usual, nullptr);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, number);
    raise(number);
    pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    _exit(128 + number);
}

void OnSignal(int number) {
    if (delays == 0) End(number);
    waiting = number;
}

}  // namespace

void EndOnStopSignals(const char* line) {
    endLine = line;
    for (const int number : kSignals) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action.sa_handler = OnSignal;
        action.sa_flags = SA_RESTART;
        sigfillset(&action.sa_mask);
        sigaction(number, &action, nullptr);
    }
}

StopDelay::StopDelay() {
    ++delays;
}

StopDelay::~StopDelay() {
    if (--delays == 0 && waiting != 0) End(waiting);
}

RemovedOnStop::RemovedOnStop(int folder, const std::string& name) {
    removedIn = -1;
    const std::size_t size = std::min(name.size(), removedName.size() - 1);
    std::copy_n(name.begin(), size, removedName.begin());
    removedName[size] = '\0';
    removedIn = folder;
}

RemovedOnStop::~RemovedOnStop() {
    removedIn = -1;
}

}  // namespace kalvex
