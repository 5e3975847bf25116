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

/// Whether this program may start. When another one runs its window is looked for twice, 500 ms
/// apart; found, it comes to the front after a beep; not found, this program starts all the same.
InstanceAnswer CheckInstance(const InstanceSteps& steps);

/// The mutex and, once the window stands, the place where later starts find it.
struct InstanceGuard {
    std::unique_ptr<QLockFile> mutex;
    std::unique_ptr<QLocalServer> server;
    bool owner = false;
};

/// The real steps: a lock file (that of a crashed program is recovered) and a local socket, both
/// in a folder that only this user can enter. `guard` must outlive the steps.
InstanceSteps RealInstanceSteps(InstanceGuard& guard, const QString& folder);

/// The user's own runtime folder.
QString DefaultInstanceFolder();

/// Makes this program findable; `raise` runs for every later start.
void ListenForStarts(InstanceGuard& guard, const QString& folder, std::function<void()> raise);

/// Closes mutex and socket; harmless when repeated.
void ReleaseInstance(InstanceGuard& guard);

}  // namespace kalvex
