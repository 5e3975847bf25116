// One running program for each settings file, and the way to the window that has it.
#pragma once

#include <QLocalServer>
#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "base/descriptor.h"

namespace kalvex {

/// The steps of the check, so that it can be tested without a second process.
struct InstanceSteps {
    std::function<bool()> takeMutex;   ///< false: another program has the settings
    std::function<bool()> findWindow;  ///< whether the program that has them can be reached
    std::function<void(int milliseconds)> wait;
    std::function<void()> beep;
    std::function<bool()> raiseWindow;  ///< false: the program that has them does not answer
};

enum class InstanceAnswer {
    Start,
    End,     ///< the other window has come to the front
    Refused  ///< another program has the settings and could not be reached, or does not answer
};

/// Whether this program may start. When another one has the settings, its window is looked for
/// twice, 500 ms apart. If the window is found, a beep sounds, the window comes to the front, and
/// this program ends. If it is not found, or does not answer, this program ends too: two sessions
/// would overwrite each other's lines.
[[nodiscard]] InstanceAnswer CheckInstance(const InstanceSteps& steps);

/// The lock of the settings and, once the window has been shown, the socket on which later starts
/// find it.
struct InstanceGuard {
    Descriptor mutex;
    std::unique_ptr<QLocalServer> server;
};

/// How long a start waits for the answer of the program that has the settings. It may be computing.
inline constexpr int kAnswerTimeout = 5000;  // milliseconds

/// The real steps: the lock of a settings file and a local socket. Where the file cannot be locked,
/// the program starts without a lock. `guard` must outlive the steps. The answer of the other
/// program is waited for in an event loop, at most `answerTimeout` milliseconds.
[[nodiscard]] InstanceSteps RealInstanceSteps(InstanceGuard& guard, const std::string& settings,
                                              int answerTimeout = kAnswerTimeout);

/// The name of the local socket of the program that has a settings file: short, whatever the path
/// is, and the same for all paths that lead to the file. It names no file.
[[nodiscard]] QString InstanceSocketName(const std::string& settings);

/// Opens the socket; `raise` runs whenever a later start of the same user connects to it. The start
/// is answered afterwards.
void ListenForStarts(InstanceGuard& guard, const std::string& settings,
                     std::function<void()> raise);

/// Closes lock and socket; harmless when repeated.
void ReleaseInstance(InstanceGuard& guard);

}  // namespace kalvex
