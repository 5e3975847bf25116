// The program's state lives here. Its windows are hidden and shown while it runs, so the event loop
// ends by Application::quit and not with the last window.
#include <QApplication>
#include <csignal>

#include "base/message_line.h"
#include "settings/registry_file.h"
#include "ui/application.h"
#include "ui/graph/picture_export.h"
#include "ui/parts/message_window.h"
#include "ui/parts/touch_style.h"
#include "ui/program_icon.h"
#include "ui/terminate_signal.h"
#include "workspace/function_list.h"

int main(int argc, char** argv) {
    using namespace kalvex;
#ifdef SIGPIPE
    // Standard error may be a pipe that nobody reads any more. A message that cannot be written
    // there must not end the program before its settings are stored.
    std::signal(SIGPIPE, SIG_IGN);
#endif
    QApplication qt(argc, argv);
    QApplication::setApplicationName("kalvex");
    // With a display name Qt would append it to the caption of every message box.
    QGuiApplication::setDesktopFileName("kalvex");
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new TouchStyle);

    Application application;
    const QString folder = DefaultInstanceFolder();
    if (CheckInstance(RealInstanceSteps(application.instance, folder)) == InstanceAnswer::End) {
        return 0;
    }
    application.registry = OpenRegistryFile(DefaultRegistryPath());
    application.show = ShowMessageWindow;
    application.quit = [] { QCoreApplication::exit(0); };
    application.pictureFolder = DefaultPictureFolder();
    application.windowStatePath = DefaultWindowStatePath();

    // At the end of a session nobody is there to answer a box.
    const auto end = [&application] { EndApplication(application, WriteMessageLine); };
    const auto watch = WatchTerminateSignal([end] {
        end();
        QCoreApplication::exit(0);
    });
    QObject::connect(&qt, &QGuiApplication::commitDataRequest, &qt, end, Qt::DirectConnection);
    QObject::connect(&qt, &QCoreApplication::aboutToQuit, &qt, end);

    StartApplication(application);
    if (application.ended) return 0;  // QCoreApplication::exit does nothing before the event loop
    ListenForStarts(application.instance, folder, [&application] { RaiseWindow(application); });
    const int result = QApplication::exec();
    ReleaseFunctions(application.workspace.functions);
    return result;
}
