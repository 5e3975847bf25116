// A signal handler may call hardly any function, so it only writes a byte into a pipe; the event
// loop watches the other end and does the work. The pipe does not block: when it is full, the
// request has been made already.
#include "ui/terminate_signal.h"

#include <QSocketNotifier>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#endif

namespace kalvex {

#ifdef Q_OS_UNIX
namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler gets no argument of the program's own, so its pipe has to be process-wide.
std::atomic<int> requestEnd = -1;

void OnSignal(int) {
    const int savedError = errno;
    const char byte = 'e';
    const ssize_t written = write(requestEnd, &byte, 1);
    static_cast<void>(written);
    errno = savedError;
}

/// Whether whoever started the program wants it to outlive a signal, as nohup does with SIGHUP and
/// a shell with SIGINT for what runs in the background.
bool IsIgnored(int number) {
    struct sigaction present {};
    return number != SIGTERM && sigaction(number, nullptr, &present) == 0 &&
           present.sa_handler == SIG_IGN;
}

class SignalWatch final : public QObject {
  public:
    SignalWatch(std::array<int, 2> pipeEnds, std::function<void()> ended)
        : ends(pipeEnds), notifier(pipeEnds[0], QSocketNotifier::Read) {
        connect(&notifier, &QSocketNotifier::activated, this, [this, ended = std::move(ended)] {
            std::array<char, 16> bytes{};
            while (read(ends[0], bytes.data(), bytes.size()) > 0) {
            }
            ended();
        });
        requestEnd = ends[1];
        for (const int number : kSignals)
            if (!IsIgnored(number)) std::signal(number, OnSignal);
    }
    ~SignalWatch() override {
        for (const int number : kSignals)
            if (!IsIgnored(number)) std::signal(number, SIG_DFL);
        requestEnd = -1;
        close(ends[0]);
        close(ends[1]);
    }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

  private:
    std::array<int, 2> ends;
    QSocketNotifier notifier;
};

}  // namespace

std::unique_ptr<QObject> WatchTerminateSignal(std::function<void()> ended) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return nullptr;
    for (const int end : ends) {
        fcntl(end, F_SETFL, O_NONBLOCK);
        fcntl(end, F_SETFD, FD_CLOEXEC);
    }
    return std::make_unique<SignalWatch>(ends, std::move(ended));
}
#else
std::unique_ptr<QObject> WatchTerminateSignal(std::function<void()>) {
    return nullptr;
}
#endif

}  // namespace kalvex
