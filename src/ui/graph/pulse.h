// A regular reminder for a computation that keeps the only thread of the windows busy.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace kalvex {

/// Sets a flag every 15 milliseconds, about a frame of the screen, while it is started. It uses a
/// thread of its own, which sleeps otherwise. When the system gives it no thread, the flag is never
/// set.
class Pulse final {
  public:
    Pulse() = default;
    ~Pulse();
    Pulse(const Pulse&) = delete;
    Pulse& operator=(const Pulse&) = delete;

    /// `flag` must exist until Stop.
    void Start(std::atomic<bool>& flag);
    void Stop();

  private:
    void Run();

    std::mutex mutex;
    std::condition_variable changed;
    std::atomic<bool>* due = nullptr;  ///< null: not started
    bool ending = false;
    std::thread thread;
};

}  // namespace kalvex
