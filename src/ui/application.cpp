// The editor lives as long as the program; the graph window is made by the first Draw and kept.
// Only one of the two is visible. Whatever ends the program (a command, a closed window, the end
// of the session, a signal) comes through EndApplication, which works once.
#include "ui/application.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <utility>

#include "commands/draw_flow.h"
#include "graph/approx_failure.h"
#include "graph/pick.h"
#include "resources/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "ui/dialogs/calculator_dialog.h"
#include "ui/dialogs/options_dialog.h"
#include "ui/editor/point_file_dialog.h"
#include "ui/graph/graph_canvas.h"
#include "ui/graph/picture_export.h"
#include "ui/parts/qt_text.h"
#include "ui/report/analysis_flow.h"

namespace kalvex {
namespace {

/// Settings first, then what was typed since the last Draw; the first failure ends it silently.
void StoreFunctions(const Application& application) {
    const Workspace& workspace = application.workspace;
    if (!StoreFunctionSettings(application.registry, workspace.functions)) return;
    StoreFunctionTexts(application.registry, workspace.lines);
}

/// Stores bounds, factors and the parameter range of an open graph.
void StoreOpenView(Application& application, const ShowMessage& show) {
    if (!application.viewUnsaved) return;
    application.viewUnsaved = false;
    Workspace& workspace = application.workspace;
    workspace.view = application.graph.viewport.view;
    if (StoreView(application.registry, workspace.view, workspace.options)) return;
    show({std::u16string(Text(StringId::Error)),
          std::u16string(Text(StringId::SaveIntoRegistryFailed)), MessageIcon::None,
          MessageButtons::Ok});
}

/// Saves the picture where the user wants it; the next dialog starts in the same folder.
void AskForPicture(Application& application) {
    const QString last = application.windowState.folder;
    const QString folder = last.isEmpty() ? application.pictureFolder : last;
    OpenSavePictureDialog(
        application.graphWindow.get(), folder, [&application](const QString& path) {
            application.windowState.folder = QFileInfo(path).absolutePath();
            SavePicture(application.graphWindow->Canvas().Picture(), path, application.show);
        });
}

/// Shows boxes when no picture is being computed: until then nobody could answer them.
void ShowWhenIdle(Application& application, const std::vector<MessageBox>& boxes, int delay) {
    constexpr int kRetry = 50;  // milliseconds
    QTimer::singleShot(delay, application.graphWindow.get(), [&application, boxes] {
        if (application.graphWindow->Canvas().IsComputing())
            return ShowWhenIdle(application, boxes, kRetry);
        for (const MessageBox& box : boxes)
            application.show(box);
    });
}

/// What the methods of the File lines met: lines to standard error at every redraw, boxes once per
/// Draw, when the picture is on the screen.
void TellFailures(Application& application) {
    const auto& failures = application.graph.approxFailures;
    const std::string lines = FailureLines(failures);
    std::fputs(lines.c_str(), stderr);
    if (!std::exchange(application.failuresUntold, false)) return;
    const std::vector<MessageBox> boxes = FailureBoxes(failures);
    if (!boxes.empty()) ShowWhenIdle(application, boxes, 0);
}

/// Where the choice of a line's file starts: where its file is, else in the last folder.
QString FolderOfLine(const Application& application, int slot) {
    const QFileInfo file(ToQString(application.workspace.lines[static_cast<std::size_t>(slot)]));
    return file.isFile() ? file.absolutePath() : application.windowState.folder;
}

/// Lets the user choose the file of a File line.
void ChoosePointFile(Application& application, int slot) {
    OpenPointFileDialog(application.editor.get(), FolderOfLine(application, slot),
                        [&application, slot](const QString& path) {
                            application.windowState.folder = QFileInfo(path).absolutePath();
                            application.workspace.lines[static_cast<std::size_t>(slot)] =
                                FromQString(path);
                            application.editor->ShowLines();
                            application.editor->FocusLine(slot);
                        });
}

/// The Options dialog; what it saves shows at once, in the lines and in an open graph.
void OpenOptions(Application& application) {
    OpenOptionsDialog(VisibleWindow(application), application.workspace.options,
                      application.registry, application.show, [&application] {
                          application.editor->ShowLines();
                          if (VisibleWindow(application) == application.graphWindow.get())
                              application.graphWindow->Canvas().ScheduleRedraw();
                      });
}

void ShowCalculator(Application& application) {
    OpenCalculator(VisibleWindow(application), application.calculated, application.show);
}

GraphActions ActionsOfGraph(Application& application) {
    GraphActions actions;
    actions.graphTable = [&application] { ReturnToTable(application); };
    actions.exit = [&application] { ExitApplication(application); };
    actions.openOptions = [&application] { OpenOptions(application); };
    actions.openCalculator = [&application] { ShowCalculator(application); };
    actions.show = application.show;
    actions.analyse = [&application](const FunctionEntry& entry) {
        OpenAnalysis({application.graphWindow.get(), application.analysis,
                      application.windowState.folder, application.show, kPlatformType},
                     entry, application.graph.viewport);
    };
    actions.redrawn = [&application] { TellFailures(application); };
    actions.savePictureAs = [&application] { AskForPicture(application); };
    actions.copyPicture = [&application] {
        const GraphCanvas& canvas = application.graphWindow->Canvas();
        CopyPicture(canvas.Picture(), canvas.devicePixelRatioF());
    };
    actions.picture = [&application] {
        ExportPicture(application.graphWindow->Canvas().Picture(), application.workspace.options,
                      application.registry, application.pictureFolder, application.show);
    };
    return actions;
}

}  // namespace

void LoadWorkspace(Application& application) {
    const Registry& registry = application.registry;
    Workspace& workspace = application.workspace;
    const bool firstStart = CreateDefaultKeys(registry);
    LoadFunctionTexts(registry, workspace, application.show);
    LoadFunctionSettings(registry, workspace, application.show);
    LoadSettings(registry, workspace, application.show);
    CreateMissingKeys(registry, workspace);
    application.loaded = true;
    if (firstStart) workspace.functions[0].selected = 1;
    application.graph.viewport.view = workspace.view;
    SaveAsPrevious(application.graph.viewport);
}

void StartApplication(Application& application) {
    LoadWorkspace(application);
    if (application.ended) return;
    application.windowState = LoadWindowState(application.windowStatePath);
    EditorActions actions;
    actions.draw = [&application] { DrawFunctions(application); };
    actions.exit = [&application] { ExitApplication(application); };
    actions.choosePointFile = [&application](int slot) { ChoosePointFile(application, slot); };
    actions.openOptions = [&application] { OpenOptions(application); };
    actions.openCalculator = [&application] { ShowCalculator(application); };
    actions.show = application.show;
    application.editor = std::make_unique<EditorWindow>(application.workspace, std::move(actions));
    ApplyWindowState(*application.editor, application.windowState);
    application.editor->FocusLine(0);
    application.editor->show();
}

void DrawFunctions(Application& application) {
    if (application.graphWindow && application.graphWindow->Canvas().IsComputing()) return;
    if (!RunDrawFlow(application.workspace, application.registry, application.show)) return;
    application.graph.trace = {};
    EnterNormalMode(application.graph);
    application.viewUnsaved = true;
    application.failuresUntold = true;
    if (!application.graphWindow) {
        application.graphWindow = std::make_unique<GraphWindow>(
            application.graph, application.workspace, ActionsOfGraph(application));
    }
    application.graphWindow->Canvas().StartAfresh();
    TakeWindowPlace(*application.editor, *application.graphWindow);
    application.graphWindow->Canvas().ScheduleRedraw();
}

void ReturnToTable(Application& application) {
    StoreOpenView(application, application.show);
    if (application.ended) return;
    TakeWindowPlace(*application.graphWindow, *application.editor);
}

void ExitApplication(Application& application) {
    EndApplication(application, application.show);
    application.quit();
}

void EndApplication(Application& application, const ShowMessage& show) {
    if (application.ended) return;
    application.ended = true;
    if (application.graphWindow) application.graphWindow->Canvas().Stop();
    StoreOpenView(application, show);
    if (application.loaded) StoreFunctions(application);
    if (const QWidget* const window = VisibleWindow(application)) {
        RememberWindow(*window, application.windowState);
        SaveWindowState(application.windowStatePath, application.windowState);
    }
    ReleaseInstance(application.instance);
}

QWidget* VisibleWindow(const Application& application) {
    if (application.graphWindow && application.graphWindow->isVisible()) {
        return application.graphWindow.get();
    }
    return application.editor.get();
}

void RaiseWindow(const Application& application) {
    QWidget* const window = VisibleWindow(application);
    if (window == nullptr) return;
    if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
    if (QWidget* const box = QApplication::activeModalWidget()) {
        box->raise();
        box->activateWindow();
    }
}

}  // namespace kalvex
