// The running program: its state, its windows, and what leads from one to the other.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "analysis/analysis.h"
#include "base/message_box.h"
#include "commands/calculator_history.h"
#include "graph/graph_state.h"
#include "settings/registry.h"
#include "ui/editor/editor_window.h"
#include "ui/graph/graph_window.h"
#include "ui/single_instance.h"
#include "ui/window_state.h"
#include "workspace/workspace.h"

namespace kalvex {

/// Owned by main. The first block is set before StartApplication.
struct Application {
    Registry registry;
    ShowMessage show;
    std::function<void()> quit;  ///< posts the end of the event loop
    QString pictureFolder;
    QString windowStatePath;

    Workspace workspace;
    GraphState graph;
    AnalysisResult analysis;
    InstanceGuard instance;
    WindowState windowState;
    CalculatorHistory calculated;
    std::unique_ptr<EditorWindow> editor;
    std::unique_ptr<GraphWindow> graphWindow;
    bool loaded = false;          ///< the workspace holds what the store has
    bool failuresUntold = false;  ///< Draw has run, its methods' failures have not been shown yet
    bool viewUnsaved = false;     ///< the graph window is open and its bounds are not stored yet
    bool ended = false;           ///< everything has been stored for the last time
};

/// The settings of the first start are made when there are none, then texts, function settings
/// and general settings are loaded; keys that a damaged store lacks are made. Line 1 is selected on
/// a first start.
void LoadWorkspace(Application& application);

/// Loads everything and shows the editor with the focus in line 1; no editor when the program was
/// ended while a message of the loading was on the screen.
void StartApplication(Application& application);

/// The Draw flow and, when it succeeds, the graph window in the editor's place.
void DrawFunctions(Application& application);

/// Stores the view (a failure is reported) and brings the editor back.
void ReturnToTable(Application& application);

/// `Exit` of both windows: stores everything and ends the event loop.
void ExitApplication(Application& application);

/// Stores what is not stored yet, once: the view of an open graph, the function settings, the lines
/// as they stand in the editor; closes the mutex. `show` gets a failure of the view, the others
/// are silent.
void EndApplication(Application& application, const ShowMessage& show);

/// The window that the user sees at the moment.
QWidget* VisibleWindow(const Application& application);

/// Brings that window to the front.
void RaiseWindow(const Application& application);

}  // namespace kalvex
