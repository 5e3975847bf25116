// The editor exists as long as the program; the graph window is made by the first Draw and kept.
// Only one of the two is visible.
#include "ui/application.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <filesystem>
#include <utility>

#include "base/encoding.h"
#include "base/temporary_file.h"
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
#include "ui/help/help_window.h"
#include "ui/parts/file_name.h"
#include "ui/parts/gate.h"
#include "ui/parts/message_window.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/standard_error.h"
#include "ui/report/analysis_flow.h"

namespace kalvex {
namespace {

/// Tells quietly in the editor what the user should know about the settings file.
void ShowStoreNote(Application& application) {
    const StoreRemarks remarks = RemarksOf(application.registry);
    QString note;
    if (!remarks.notStored.empty()) {
        note = ToQString(FillIn(Text(StringId::SettingsNotStored), {ToUtf16(remarks.notStored)}));
    } else if (remarks.keptAs != application.keptTold) {
        note = ToQString(FillIn(Text(StringId::SettingsKept), {ToUtf16(remarks.keptAs)}));
        application.keptTold = remarks.keptAs;
    }
    application.editor->ShowNote(note);
}

/// Shows boxes as soon as nothing else is open and no picture is being computed; during a
/// computation input is held back and nobody could answer them.
void ShowWhenIdle(Application& application, const std::vector<MessageBox>& boxes, int delay) {
    constexpr int kRetry = 50;  // milliseconds
    QTimer::singleShot(delay, application.graphWindow.get(), [&application, boxes] {
        if (application.graphWindow->Canvas().IsComputing() || IsAnythingOpen())
            return ShowWhenIdle(application, boxes, kRetry);
        Tell(application.show, boxes);
    });
}

/// Reports why methods of File lines gave no curve: lines on standard error at every redraw, boxes
/// once per Draw, when the picture is on the screen.
void TellFailures(Application& application) {
    const auto& failures = application.graph.approxFailures;
    WriteToStandardError(FailureLines(failures));
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

void ReturnFromGraph(Application& application) {
    ReturnToTable(application);
}

void Exit(Application& application) {
    ExitApplication(application);
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

/// A command on the picture that the graph window shows.
template <void (*run)(const PictureSource&)>
void OnPicture(Application& application) {
    run({*application.graphWindow, application.graph, application.workspace, application.registry,
         application.pictureFolder, application.windowState.folder, application.pictureChoices,
         application.show});
}

/// The commands of the program, as both windows call them.
auto CommandsOf(Application& application) {
    return [&application](CommandId command) { return RunProgramCommand(application, command); };
}

/// Removes what a killed run left in the folders that the program writes to: that of the settings,
/// that of the pictures, and the one that was chosen last.
void RemoveOldLeftovers(const Application& application) {
    const std::filesystem::path windowState = application.windowStatePath;
    for (const std::string& folder :
         {windowState.parent_path().string(), FileNameOf(application.pictureFolder),
          FileNameOf(application.windowState.folder)}) {
        if (!folder.empty()) RemoveLeftovers(folder);
    }
}

void MakeGraphWindow(Application& application) {
    const auto run = CommandsOf(application);
    application.graphWindow = std::make_unique<GraphWindow>(
        application.graph, application.workspace, WindowActions{run, application.show});
    QObject::connect(&application.graphWindow->Canvas(), &GraphCanvas::Redrawn,
                     application.graphWindow.get(), [&application] { TellFailures(application); });
}

void ShowEditor(Application& application) {
    application.windowState = LoadWindowState(application.windowStatePath);
    RemoveOldLeftovers(application);
    const auto run = CommandsOf(application);
    application.editor = std::make_unique<EditorWindow>(application.workspace,
                                                        EditorActions{{run, application.show}});
    ApplyWindowState(*application.editor, application.windowState);
    application.editor->FocusLine(0);
    ShowStoreNote(application);
    application.editor->show();
}

/// The last step of Draw: the graph window takes the editor's place.
void ShowGraph(Application& application) {
    application.graph.trace = {};
    EnterNormalMode(application.graph);
    application.viewUnsaved = true;
    application.failuresUntold = true;
    if (!application.graphWindow) MakeGraphWindow(application);
    application.graphWindow->Canvas().StartAfresh();
    TakeWindowPlace(*application.editor, *application.graphWindow);
    application.graphWindow->Canvas().ScheduleRedraw();
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
    {CommandId::Exit, Exit},
    {CommandId::GraphTable, ReturnFromGraph, true},
    {CommandId::Analyze, AnalyseTraced, true},
    {CommandId::Picture, OnPicture<ExportShownPicture>, true},
    {CommandId::SavePictureAs, OnPicture<AskForPicture>, true},
    {CommandId::CopyPicture, OnPicture<CopyShownPicture>, true},
    {CommandId::Print, OnPicture<PrintShownGraph>, true},
    {CommandId::GraphExit, Exit, true},
};

}  // namespace

bool RunProgramCommand(Application& application, CommandId command) {
    if (application.ended) return false;
    for (const ProgramCommand& row : kProgramCommands) {
        if (row.id != command || (row.ofGraph && !application.graphWindow)) continue;
        row.run(application);
        return true;
    }
    return RunHelpCommand(VisibleWindow(application), command);
}

ShowBox BoxesOnScreen(const Application& application) {
    return ShowBox::Opening([&application](const MessageBox& box, const TakeAnswer& answered) {
        if (application.closing) return answered(MessageAnswer::Ended);
        OpenMessageWindow(box, [&application, answered](MessageAnswer answer) {
            answered(application.closing ? MessageAnswer::Ended : answer);
        });
    });
}

Flow StartApplication(Application& application) {
    const Registry& registry = application.registry;
    Workspace& workspace = application.workspace;
    const bool firstStart = CreateDefaultKeys(registry);
    for (const auto load : {LoadFunctionTexts, LoadFunctionSettings, LoadSettings}) {
        const auto boxes =
            BoxesOf([&](const ShowMessage& tell) { load(registry, workspace, tell); });
        for (const MessageBox& box : boxes) {
            co_await application.show(box);
            if (application.ended) co_return;
        }
    }
    CreateMissingKeys(registry, workspace);
    application.loaded = true;
    if (firstStart) workspace.functions[0].selected = 1;
    application.graph.viewport.view = workspace.view;
    SaveAsPrevious(application.graph.viewport);
    ShowEditor(application);
    if (application.started) application.started();
}

void DrawFunctions(Application& application) {
    if (application.graphWindow && application.graphWindow->Canvas().IsComputing()) return;
    RunDrawFlow(application.workspace, application.registry, application.show,
                [&application](bool ready) {
                    if (application.ended) return;
                    ShowStoreNote(application);
                    if (ready) ShowGraph(application);
                });
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
