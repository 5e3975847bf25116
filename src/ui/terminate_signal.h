// The operating system's request to end the program, as a call in the event loop.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace kalvex {

/// Runs `ended` in the event loop when the process is asked to end (SIGTERM, SIGINT, SIGHUP), as
/// long as the returned object lives. SIGINT and SIGHUP stay ignored if they are. One object at a
/// time. Null where signals do not exist or cannot be caught.
[[nodiscard]] std::unique_ptr<QObject> WatchTerminateSignal(std::function<void()> ended);

}  // namespace kalvex
