// The program's state lives here. Its windows are hidden and shown while it runs, so the event loop
// ends by Application::quit and not with the last window.
#include <csignal>
#include <cstdlib>
#include <functional>
#include <new>

#include "base/memory_room.h"
#include "base/stack_room.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/registry_file.h"
#include "ui/application.h"
#include "ui/graph/picture_export.h"
#include "ui/parts/message_window.h"
#include "ui/parts/standard_error.h"
#include "ui/parts/touch_style.h"
#include "ui/program_icon.h"
#include "ui/safe_application.h"
#include "ui/terminate_signal.h"
#include "workspace/function_list.h"

namespace {

using namespace kalvex;

/// Whether somebody sees the windows of this program.
bool HasDisplay() {
    return QGuiApplication::platformName() != "offscreen" &&
           QGuiApplication::platformName() != "minimal";
}

/// The status of a start that another program with the same settings has forbidden.
int RefuseStart() {
    const MessageBox box = ErrorBox(Text(StringId::AlreadyRunning));
    static_cast<void>(WriteMessageLineNow(box));
    if (!HasDisplay()) return EXIT_FAILURE;
    OpenMessageWindow(box, [](MessageAnswer) { QCoreApplication::exit(EXIT_FAILURE); });
    return QApplication::exec();
}

int RunProgram(int argc, char** argv) {
    SafeApplication qt(argc, argv);
    qt.tellLackOfMemory = [](const std::function<void()>& answered) {
        OpenMessageWindow(ErrorBox(Text(StringId::OutOfMemory)),
                          [answered](MessageAnswer) { answered(); });
    };
    QApplication::setApplicationName("kalvex");
    // With a display name Qt would append it to the caption of every message box.
    QGuiApplication::setDesktopFileName("kalvex");
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new TouchStyle);

    Application application;
    const std::string settings = DefaultRegistryPath();
    const auto answer = CheckInstance(RealInstanceSteps(application.instance, settings));
    if (answer == InstanceAnswer::End) return EXIT_SUCCESS;
    if (answer == InstanceAnswer::Refused) return RefuseStart();
    application.registry = OpenRegistryFile(settings);
    application.show = BoxesOnScreen(application);
    application.quit = [] { QCoreApplication::exit(0); };
    application.pictureFolder = DefaultPictureFolder();
    application.windowStatePath = DefaultWindowStatePath();

    // At the end of a session nobody is there to answer a box.
    const auto end = [&application] { EndApplication(application, WriteMessageLineNow); };
    const auto watch = WatchTerminateSignal([end] {
        end();
        QCoreApplication::exit(0);
    });
    QObject::connect(
        &qt, &QGuiApplication::commitDataRequest, &qt,
        [&application] { StoreForSession(application, WriteMessageLineNow); },
        Qt::DirectConnection);
    QObject::connect(&qt, &QCoreApplication::aboutToQuit, &qt, end);

    application.started = [&application, settings] {
        ListenForStarts(application.instance, settings,
                        [&application] { RaiseWindow(application); });
    };
    StartApplication(application);
    const int result = QApplication::exec();
    ReleaseFunctions(application.workspace.functions);
    return result;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef SIGPIPE
    // Standard error may be a pipe that nobody reads any more. A message that cannot be written
    // there must not end the program before its settings are stored. Nor must a limit of the size
    // of files: the write fails then.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    EndWithALineOnFatalErrors();
    try {
        MakeStackRoom();
        DemandMemory(kMemoryOfLibraries);
        return RunProgram(argc, argv);
    } catch (const std::bad_alloc&) {
        WriteLackOfMemory();
        return EXIT_FAILURE;
    }
}
