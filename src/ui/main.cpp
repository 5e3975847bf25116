// The program: state here, work elsewhere. Windows come and go while it runs, so the event loop
// ends only when somebody says so.
#include <QApplication>

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
    QApplication qt(argc, argv);
    QApplication::setApplicationName("kalvex");
    // No display name: the caption of every message box would end in it.
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
    if (application.ended) return 0;  // an end that came before the event loop would be forgotten
    ListenForStarts(application.instance, folder, [&application] { RaiseWindow(application); });
    const int result = QApplication::exec();
    ReleaseFunctions(application.workspace.functions);
    return result;
}
