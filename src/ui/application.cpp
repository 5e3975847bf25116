// The editor exists as long as the program; the graph window is made by the first Draw and kept.
// Only one of the two is visible. Every end of the program (a command, a closed window, the end of
// the session, a signal) calls EndApplication, which works once.
#include "ui/application.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <utility>

#include "commands/draw_flow.h"
#include "graph/approx_failure.h"
#include "graph/pick.h"
#include "graph/trace.h"
#include "resources/message_boxes.h"
#include "resources/platform.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "ui/dialogs/calculator_dialog.h"
#include "ui/dialogs/options_dialog.h"
#include "ui/editor/point_file_dialog.h"
#include "ui/graph/graph_canvas.h"
#include "ui/graph/picture_export.h"
#include "ui/help/help_window.h"
#include "ui/parts/qt_text.h"
#include "ui/report/analysis_flow.h"

namespace kalvex {
namespace {

/// Stores the settings, then the lines; silently stops at the first failure.
void StoreFunctions(const Application& application) {
    const Workspace& workspace = application.workspace;
    if (!StoreFunctionSettings(application.registry, workspace.functions)) return;
    static_cast<void>(StoreFunctionTexts(application.registry, workspace.lines));
}

/// Stores bounds, factors and the parameter range of an open graph.
void StoreOpenView(Application& application, const ShowMessage& show) {
    if (!application.viewUnsaved) return;
    application.viewUnsaved = false;
    Workspace& workspace = application.workspace;
    workspace.view = application.graph.viewport.view;
    if (StoreView(application.registry, workspace.view, workspace.options)) return;
    show(BoxOf(StringId::Error, Text(StringId::SaveIntoRegistryFailed), MessageIcon::None));
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

/// Shows boxes as soon as no picture is being computed; during a computation input is held back and
/// nobody could answer them.
void ShowWhenIdle(Application& application, const std::vector<MessageBox>& boxes, int delay) {
    constexpr int kRetry = 50;  // milliseconds
    QTimer::singleShot(delay, application.graphWindow.get(), [&application, boxes] {
        if (application.graphWindow->Canvas().IsComputing())
            return ShowWhenIdle(application, boxes, kRetry);
        for (const MessageBox& box : boxes)
            application.show(box);
    });
}

/// Reports why methods of File lines gave no curve: lines on standard error at every redraw, boxes
/// once per Draw, when the picture is on the screen.
void TellFailures(Application& application) {
    const auto& failures = application.graph.approxFailures;
    const std::string lines = FailureLines(failures);
    std::fputs(lines.c_str(), stderr);
    if (!std::exchange(application.failuresUntold, false)) return;
    const std::vector<MessageBox> boxes = FailureBoxes(failures);
    if (!boxes.empty()) ShowWhenIdle(application, boxes, 0);
}

/// The folder in which the choice of a line's file starts: that of its file, else the last one.
QString FolderOfLine(const Application& application, int slot) {
    const QFileInfo file(ToQString(application.workspace.lines[static_cast<std::size_t>(slot)]));
    return file.isFile() ? file.absolutePath() : application.windowState.folder;
}

/// Lets the user choose the file of the line with the focus.
void ChoosePointFile(Application& application) {
    const std::optional<int> slot = application.editor->FocusedSlot();
    if (!slot) return;
    OpenPointFileDialog(application.editor.get(), FolderOfLine(application, *slot),
                        [&application, slot = *slot](const QString& path) {
                            application.windowState.folder = QFileInfo(path).absolutePath();
                            application.workspace.lines[static_cast<std::size_t>(slot)] =
                                FromQString(path);
                            application.editor->ShowLines();
                            application.editor->FocusLine(slot);
                        });
}

/// Opens the Options dialog. Saved options take effect at once in the lines and in an open graph.
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

void AnalyseTraced(Application& application) {
    const FunctionEntry* const traced =
        TracedFunction(application.graph, application.workspace.functions);
    if (traced == nullptr) return;
    OpenAnalysis({application.graphWindow.get(), application.analysis,
                  application.windowState.folder, application.show, kPlatformType},
                 *traced, application.graph.viewport);
}

void CopyShownPicture(Application& application) {
    const GraphCanvas& canvas = application.graphWindow->Canvas();
    CopyPicture(canvas.Picture(), canvas.devicePixelRatioF());
}

void ExportShownPicture(Application& application) {
    ExportPicture(application.graphWindow->Canvas().Picture(), application.workspace.options,
                  application.registry, application.pictureFolder, application.show);
}

/// The commands of the program, as both windows call them.
auto CommandsOf(Application& application) {
    return [&application](CommandId command) { return RunProgramCommand(application, command); };
}

void MakeGraphWindow(Application& application) {
    const auto run = CommandsOf(application);
    application.graphWindow = std::make_unique<GraphWindow>(
        application.graph, application.workspace, WindowActions{run, application.show});
    QObject::connect(&application.graphWindow->Canvas(), &GraphCanvas::Redrawn,
                     application.graphWindow.get(), [&application] { TellFailures(application); });
}

struct ProgramCommand {
    CommandId id;
    void (*run)(Application&);
    bool ofGraph = false;  ///< only once there is a graph window
};

constexpr ProgramCommand kProgramCommands[] = {
    {CommandId::Draw, DrawFunctions},
    {CommandId::File, ChoosePointFile},
    {CommandId::Options, OpenOptions},
    {CommandId::Calculator, ShowCalculator},
    {CommandId::Exit, ExitApplication},
    {CommandId::GraphTable, ReturnToTable, true},
    {CommandId::Analyze, AnalyseTraced, true},
    {CommandId::Picture, ExportShownPicture, true},
    {CommandId::SavePictureAs, AskForPicture, true},
    {CommandId::CopyPicture, CopyShownPicture, true},
    {CommandId::GraphExit, ExitApplication, true},
};

}  // namespace

bool RunProgramCommand(Application& application, CommandId command) {
    for (const ProgramCommand& row : kProgramCommands) {
        if (row.id != command || (row.ofGraph && !application.graphWindow)) continue;
        row.run(application);
        return true;
    }
    return RunHelpCommand(VisibleWindow(application), command);
}

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
    const auto run = CommandsOf(application);
    application.editor =
        std::make_unique<EditorWindow>(application.workspace, EditorActions{{run, application.show}});
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
    if (!application.graphWindow) MakeGraphWindow(application);
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
