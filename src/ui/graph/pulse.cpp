// The thread is made by the first start. Signals that end the program are left to the other
// threads: the thread blocks all of them.
#include "ui/graph/pulse.h"

#include <chrono>
#include <system_error>

#ifdef __unix__
#include <csignal>
#endif

namespace kalvex {
namespace {

constexpr std::chrono::milliseconds kPeriod(15);

void BlockSignals() {
#ifdef __unix__
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
#endif
}

}  // namespace

Pulse::~Pulse() {
    if (!thread.joinable()) return;
    {
        const std::lock_guard lock(mutex);
        due = nullptr;
        ending = true;
    }
    changed.notify_all();
    thread.join();
}

void Pulse::Start(std::atomic<bool>& flag) {
    {
        const std::lock_guard lock(mutex);
        due = &flag;
    }
    changed.notify_all();
    if (thread.joinable()) return;
    try {
        thread = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        // Without a thread the computation only cannot be stopped.
    }
}

void Pulse::Stop() {
    const std::lock_guard lock(mutex);
    due = nullptr;
}

void Pulse::Run() {
    BlockSignals();
    std::unique_lock lock(mutex);
    while (!ending) {
        if (due == nullptr) {
            changed.wait(lock);
            continue;
        }
        changed.wait_for(lock, kPeriod);
        if (due != nullptr) due->store(true, std::memory_order_relaxed);
    }
}

}  // namespace kalvex
