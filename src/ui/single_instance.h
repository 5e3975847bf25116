// One running program per user: the mutex "_Kalvex_" and the way to the window that holds it.
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>
#include <functional>
#include <memory>

namespace kalvex {

/// The steps of the check, so that it can be tested without a second process.
struct InstanceSteps {
    std::function<bool()> takeMutex;  ///< false: another program of this user holds it
    std::function<bool()> findWindow;
    std::function<void(int milliseconds)> wait;
    std::function<void()> beep;
    std::function<void()> raiseWindow;
};

enum class InstanceAnswer { Start, End };

/// Whether this program may start. When another one holds the mutex, its window is looked for
/// twice, 500 ms apart. If the window is found, a beep sounds, the window comes to the front, and
/// this program ends. If it is not found, this program starts nevertheless.
[[nodiscard]] InstanceAnswer CheckInstance(const InstanceSteps& steps);

/// The mutex and, once the window has been shown, the socket on which later starts find it.
struct InstanceGuard {
    std::unique_ptr<QLockFile> mutex;
    std::unique_ptr<QLocalServer> server;
    bool owner = false;
};

/// The real steps: a lock file (that of a crashed program is recovered) and a local socket, both
/// in a folder that only this user can enter. `guard` must outlive the steps.
[[nodiscard]] InstanceSteps RealInstanceSteps(InstanceGuard& guard, const QString& folder);

/// The user's own runtime folder.
[[nodiscard]] QString DefaultInstanceFolder();

/// Opens the socket; `raise` runs whenever a later start connects to it.
void ListenForStarts(InstanceGuard& guard, const QString& folder, std::function<void()> raise);

/// Closes mutex and socket; harmless when repeated.
void ReleaseInstance(InstanceGuard& guard);

}  // namespace kalvex
