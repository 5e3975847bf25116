// The running program: its state, its windows, and the commands that concern both windows.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "analysis/analysis.h"
#include "base/flow.h"
#include "commands/calculator_history.h"
#include "graph/graph_state.h"
#include "settings/registry.h"
#include "ui/editor/editor_window.h"
#include "ui/graph/graph_window.h"
#include "ui/graph/picture_commands.h"
#include "ui/single_instance.h"
#include "ui/window_state.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Owned by main, which sets the members of the first block before StartApplication.
struct Application {
    Registry registry;
    ShowBox show;
    std::function<void()> quit;     ///< posts the end of the event loop
    std::function<void()> started;  ///< runs once the editor is on the screen
    QString pictureFolder;
    std::string windowStatePath;

    Workspace workspace;
    GraphState graph;
    AnalysisResult analysis;
    InstanceGuard instance;
    WindowState windowState;
    CalculatorHistory calculated;
    PictureChoices pictureChoices;
    std::string keptTold;  ///< the copy of a damaged settings file that the user was told of
    std::unique_ptr<EditorWindow> editor;
    std::unique_ptr<GraphWindow> graphWindow;
    bool loaded = false;          ///< the workspace holds what the store has
    bool failuresUntold = false;  ///< boxes about failed methods wait for the picture of a Draw
    bool viewUnsaved = false;     ///< the graph window is open and its bounds are not stored yet
    bool closing = false;         ///< what is open is being closed: no new box opens
    bool ended = false;           ///< everything has been stored for the last time
};

/// Boxes as windows, for `Application::show`. While the program closes what is open, a box counts
/// as answered without being shown.
[[nodiscard]] ShowBox BoxesOnScreen(const Application& application);

/// Makes the default settings on a first start, loads texts, function settings and general
/// settings, and makes the keys that a damaged store lacks. On a first start line 1 is selected.
/// Then shows the editor with the focus in line 1. There is no editor when the program was ended
/// while a message about the loading was on the screen.
Flow StartApplication(Application& application);

/// Runs a command of the whole program. Both windows hand on to it what they cannot run themselves.
/// False for a number that is no command, for a command of the graph before the first Draw, and
/// after the end of the program.
[[nodiscard]] bool RunProgramCommand(Application& application, CommandId command);

/// Runs the steps of Draw and, when they succeed, shows the graph window in the editor's place.
void DrawFunctions(Application& application);

/// Stores the view (a failure is reported) and brings the editor back.
Flow ReturnToTable(Application& application);

/// `Exit` of both windows: stores everything and ends the event loop.
Flow ExitApplication(Application& application);

/// The session ends, and with it perhaps the program. Answers everything that is open with its
/// Cancel or its only button, so that all flows end; then stores the view of an open graph, the
/// function settings, and the lines as they are in the editor. A failure to store the view goes to
/// `show`, other failures are silent.
void StoreForSession(Application& application, const ShowMessage& show);

/// The end of the program from outside: does the same and closes the mutex. Works once.
void EndApplication(Application& application, const ShowMessage& show);

/// The window that the user sees at the moment.
[[nodiscard]] QWidget* VisibleWindow(const Application& application);

/// Brings that window to the front.
void RaiseWindow(const Application& application);

}  // namespace kalvex
