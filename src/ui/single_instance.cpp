// The window of the running program is found by connecting to its local socket, which opens only
// after the window has been shown; one byte over the connection asks the window to come to the
// front, and one byte comes back when it has. A connection alone says little: the system makes it
// even when the other program is stopped. The socket is in the system's table of names and not in a
// folder: no folder of another user and no length of a path can come into its way, and nothing is
// left behind by a crash. Another user may take the name or connect to it, so both ends ask the
// system for the user at the other.
#include "ui/single_instance.h"

#include <QApplication>
#include <QEventLoop>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>
#include <cstdint>
#include <utility>

#include "settings/settings_lock.h"

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace kalvex {
namespace {

constexpr int kSecondLook = 500;      // milliseconds
constexpr int kConnectTimeout = 200;  // milliseconds; a local connection takes less than one

/// Whether the program at the other end of a connection belongs to this user.
bool IsOwn(const QLocalSocket& connection) {
#ifdef SO_PEERCRED
    ucred other{};
    socklen_t size = sizeof other;
    const int number = static_cast<int>(connection.socketDescriptor());
    return getsockopt(number, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 &&
           other.uid == geteuid();
#else
    static_cast<void>(connection);
    return true;
#endif
}

std::string OwnerText() {
#ifdef Q_OS_UNIX
    return std::to_string(geteuid());
#else
    return {};
#endif
}

/// The hash of Fowler, Noll and Vo with 64 bits.
std::uint64_t HashOf(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return hash;
}

void Answer(QLocalSocket& caller, const std::function<void()>& raise) {
    if (caller.readAll().isEmpty() || !IsOwn(caller)) return;
    raise();
    caller.write("a");
}

/// Whether a byte comes over the connection within a time. False also when it is closed.
bool WaitForAnswer(QLocalSocket& socket, int milliseconds) {
    QEventLoop loop;
    QObject::connect(&socket, &QLocalSocket::readyRead, &loop, &QEventLoop::quit);
    QObject::connect(&socket, &QLocalSocket::disconnected, &loop, &QEventLoop::quit);
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    const bool canAnswer = socket.state() == QLocalSocket::ConnectedState;
    if (canAnswer && socket.bytesAvailable() == 0) loop.exec();
    return socket.bytesAvailable() > 0;
}

}  // namespace

InstanceAnswer CheckInstance(const InstanceSteps& steps) {
    if (steps.takeMutex()) return InstanceAnswer::Start;
    bool found = steps.findWindow();
    if (!found) {
        steps.wait(kSecondLook);
        found = steps.findWindow();
    }
    if (!found) return InstanceAnswer::Refused;
    steps.beep();
    return steps.raiseWindow() ? InstanceAnswer::End : InstanceAnswer::Refused;
}

InstanceSteps RealInstanceSteps(InstanceGuard& guard, const std::string& settings,
                                int answerTimeout) {
    const auto socket = std::make_shared<QLocalSocket>();
    socket->setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    InstanceSteps steps;
    steps.takeMutex = [&guard, settings] {
        return LockSettings(settings, guard.mutex) != LockAnswer::Busy;
    };
    steps.findWindow = [socket, name = InstanceSocketName(settings)] {
        socket->abort();
        socket->connectToServer(name);
        return socket->waitForConnected(kConnectTimeout) && IsOwn(*socket);
    };
    steps.wait = [](int milliseconds) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
    };
    steps.beep = [] { QApplication::beep(); };
    steps.raiseWindow = [socket, answerTimeout] {
        socket->write("r");
        const bool answered = WaitForAnswer(*socket, answerTimeout);
        socket->abort();
        return answered;
    };
    return steps;
}

QString InstanceSocketName(const std::string& settings) {
    const std::uint64_t hash = HashOf(OwnerText() + ':' + RealPathOf(settings));
    return "kalvex-" + QString::number(hash, 16);
}

void ListenForStarts(InstanceGuard& guard, const std::string& settings,
                     std::function<void()> raise) {
    guard.server = std::make_unique<QLocalServer>();
    QLocalServer* const server = guard.server.get();
    server->setSocketOptions(QLocalServer::AbstractNamespaceOption);
    QObject::connect(server, &QLocalServer::newConnection, server,
                     [server, raise = std::move(raise)] {
                         while (QLocalSocket* const caller = server->nextPendingConnection()) {
                             QObject::connect(caller, &QLocalSocket::readyRead, caller,
                                              [caller, raise] { Answer(*caller, raise); });
                             QObject::connect(caller, &QLocalSocket::disconnected, caller,
                                              &QObject::deleteLater);
                             if (caller->bytesAvailable() > 0) emit caller->readyRead();
                         }
                     });
    // A program without a lock may find the name taken; then it cannot be brought to the front.
    server->listen(InstanceSocketName(settings));
}

void ReleaseInstance(InstanceGuard& guard) {
    if (guard.server) guard.server->close();
    guard.server.reset();
    guard.mutex.Close();
}

}  // namespace kalvex
