// Nothing here allocates memory before the line has been written.
#include "ui/safe_application.h"

#include <QTimer>
#include <cstdlib>
#include <exception>
#include <new>

#include "ui/parts/standard_error.h"

namespace kalvex {
namespace {

[[noreturn]] void OnTerminate() {
    try {
        if (std::current_exception()) throw;
        WriteToStandardError("kalvex: an unexpected end\n");
    } catch (const std::bad_alloc&) {
        WriteLackOfMemory();
    } catch (const std::exception& error) {
        WriteToStandardError("kalvex: ");
        WriteToStandardError(error.what());
        WriteToStandardError("\n");
    } catch (...) {
        WriteToStandardError("kalvex: an unknown failure\n");
    }
    std::_Exit(EXIT_FAILURE);
}

void OnMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const QByteArray line = qFormatLogMessage(type, context, message).toLocal8Bit() + '\n';
    WriteToStandardError({line.constData(), static_cast<std::size_t>(line.size())});
    if (type == QtFatalMsg) std::_Exit(EXIT_FAILURE);
}

}  // namespace

void WriteLackOfMemory() {
    WriteToStandardError("kalvex: There is not enough memory.\n");
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
