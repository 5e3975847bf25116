// Nothing here allocates memory before the line has been written.
#include "ui/safe_application.h"

#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace kalvex {
namespace {

[[noreturn]] void OnTerminate() {
    try {
        if (std::current_exception()) throw;
        std::fputs("kalvex: an unexpected end\n", stderr);
    } catch (const std::bad_alloc&) {
        WriteLackOfMemory();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kalvex: %s\n", error.what());
    } catch (...) {
        std::fputs("kalvex: an unknown failure\n", stderr);
    }
    std::_Exit(EXIT_FAILURE);
}

void OnMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const QByteArray line = qFormatLogMessage(type, context, message).toLocal8Bit();
    std::fprintf(stderr, "%s\n", line.constData());
    if (type == QtFatalMsg) std::_Exit(EXIT_FAILURE);
}

}  // namespace

void WriteLackOfMemory() {
    std::fputs("kalvex: There is not enough memory.\n", stderr);
}

bool SafeApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        WriteLackOfMemory();
    }
    if (!tellLackOfMemory || telling) return true;
    telling = true;
    QTimer::singleShot(0, this, [this] { tellLackOfMemory([this] { telling = false; }); });
    return true;
}

void EndWithALineOnFatalErrors() {
    std::set_terminate(OnTerminate);
    qInstallMessageHandler(OnMessage);
}

}  // namespace kalvex
