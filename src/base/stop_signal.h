// How a program without an event loop ends when it is asked to by a signal (SIGINT, SIGTERM,
// SIGHUP): at once, wherever it is, with a line on standard error, and without half a file.
#pragma once

#include <string>

namespace kalvex {

/// From now on these signals end the process: the line is written to standard error, the file of
/// `RemovedOnStop` is removed, and the signal is sent again with its usual effect, so that a shell
/// sees the status 128 + its number. A signal that was ignored stays ignored.
/// @param line with its line feed; must exist until the end of the process
void EndOnStopSignals(const char* line);

/// As long as one exists, a stop signal waits; it takes effect when the last one is destroyed. For
/// steps that belong together and are short.
class StopDelay final {
  public:
    StopDelay();
    ~StopDelay();
    StopDelay(const StopDelay&) = delete;
    StopDelay& operator=(const StopDelay&) = delete;
};

/// As long as it exists, a stop signal removes a file before it ends the process. One at a time; of
/// several the last one counts.
class RemovedOnStop final {
  public:
    /// @param folder an open folder, @param name of at most 63 bytes in it
    RemovedOnStop(int folder, const std::string& name);
    ~RemovedOnStop();
    RemovedOnStop(const RemovedOnStop&) = delete;
    RemovedOnStop& operator=(const RemovedOnStop&) = delete;
};

}  // namespace kalvex
