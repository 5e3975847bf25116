// The mutex is a lock file that holds the process number of its owner. When that process no longer
// exists the lock counts as free, so a crash blocks nobody. The window of the running program is
// found by connecting to its local socket, which opens only after the window has been shown; one
// byte over the connection asks the window to come to the front. The socket file of a crashed
// program is removed by the next owner of the mutex.
#include "ui/single_instance.h"

#include <QApplication>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <utility>

namespace kalvex {
namespace {

constexpr int kSecondLook = 500;      // milliseconds
constexpr int kConnectTimeout = 200;  // milliseconds; a local connection takes less than one

QString LockPath(const QString& folder) {
    return QDir(folder).filePath("_Kalvex_.lock");
}

QString SocketPath(const QString& folder) {
    return QDir(folder).filePath("_Kalvex_");
}

bool TakeMutex(InstanceGuard& guard, const QString& folder) {
    guard.mutex = std::make_unique<QLockFile>(LockPath(folder));
    guard.mutex->setStaleLockTime(0);  // the lock never expires: only the end of its owner frees it
    guard.owner = guard.mutex->tryLock();
    // A folder that cannot be written must not keep the program from starting.
    return guard.owner || guard.mutex->error() != QLockFile::LockFailedError;
}

}  // namespace

InstanceAnswer CheckInstance(const InstanceSteps& steps) {
    if (steps.takeMutex()) return InstanceAnswer::Start;
    bool found = steps.findWindow();
    if (!found) {
        steps.wait(kSecondLook);
        found = steps.findWindow();
    }
    if (!found) return InstanceAnswer::Start;
    steps.beep();
    steps.raiseWindow();
    return InstanceAnswer::End;
}

InstanceSteps RealInstanceSteps(InstanceGuard& guard, const QString& folder) {
    const auto socket = std::make_shared<QLocalSocket>();
    InstanceSteps steps;
    steps.takeMutex = [&guard, folder] { return TakeMutex(guard, folder); };
    steps.findWindow = [socket, folder] {
        socket->abort();
        socket->connectToServer(SocketPath(folder));
        return socket->waitForConnected(kConnectTimeout);
    };
    steps.wait = [](int milliseconds) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
    };
    steps.beep = [] { QApplication::beep(); };
    steps.raiseWindow = [socket] {
        socket->write("r");
        socket->waitForBytesWritten(kConnectTimeout);
        socket->disconnectFromServer();
    };
    return steps;
}

QString DefaultInstanceFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

void ListenForStarts(InstanceGuard& guard, const QString& folder, std::function<void()> raise) {
    guard.server = std::make_unique<QLocalServer>();
    QLocalServer* const server = guard.server.get();
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (guard.owner) QLocalServer::removeServer(SocketPath(folder));
    QObject::connect(
        server, &QLocalServer::newConnection, server, [server, raise = std::move(raise)] {
            while (QLocalSocket* const caller = server->nextPendingConnection()) {
                QObject::connect(caller, &QLocalSocket::readyRead, caller, [caller, raise] {
                    if (!caller->readAll().isEmpty()) raise();
                });
                QObject::connect(caller, &QLocalSocket::disconnected, caller,
                                 &QObject::deleteLater);
                if (caller->bytesAvailable() > 0) emit caller->readyRead();
            }
        });
    // Only the owner of the mutex listens. A second program that started because no window was
    // found leaves the socket to the first.
    server->listen(SocketPath(folder));
}

void ReleaseInstance(InstanceGuard& guard) {
    if (guard.server) guard.server->close();
    guard.server.reset();
    if (guard.mutex) guard.mutex->unlock();
    guard.mutex.reset();
    guard.owner = false;
}

}  // namespace kalvex
