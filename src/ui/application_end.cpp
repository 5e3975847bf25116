// Leaving the graph, and every end of the program: a command, a closed window, a signal, the end of
// the session. Before an end from outside stores anything, everything that is open is closed, so
// that no flow is left that would store or show something later.
#include <QScopeGuard>
#include <utility>

#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "ui/application.h"
#include "ui/graph/graph_canvas.h"
#include "ui/parts/gate.h"

namespace kalvex {
namespace {

/// The box about values that could not be stored.
MessageBox NotStoredBox() {
    return BoxOf(StringId::Error, Text(StringId::SaveIntoRegistryFailed), MessageIcon::None);
}

/// Stores bounds, factors and the parameter range of an open graph. The boxes that are due then.
[[nodiscard]] std::vector<MessageBox> StoreOpenView(Application& application) {
    if (!application.viewUnsaved) return {};
    Workspace& workspace = application.workspace;
    workspace.view = application.graph.viewport.view;
    if (StoreView(application.registry, workspace.view, workspace.options)) return {};
    return {NotStoredBox()};
}

/// Stores everything that an end stores, together. When the view cannot be stored, nothing is: the
/// result is the box about it, and StoreWithoutView stores the rest afterwards.
[[nodiscard]] std::vector<MessageBox> StoreTogether(Application& application) {
    if (!application.loaded) return {};
    Workspace& workspace = application.workspace;
    if (application.viewUnsaved) workspace.view = application.graph.viewport.view;
    if (StoreAtEnd(application.registry, workspace, application.viewUnsaved)) return {};
    return {NotStoredBox()};
}

void StoreWithoutView(const Application& application) {
    static_cast<void>(StoreAtEnd(application.registry, application.workspace, false));
}

void RememberVisibleWindow(Application& application) {
    const QWidget* const window = VisibleWindow(application);
    if (window == nullptr) return;
    RememberWindow(*window, application.windowState);
    SaveWindowState(application.windowStatePath, application.windowState);
}

/// Lets all flows end, then stores everything.
void StoreEverything(Application& application, const ShowMessage& show) {
    if (std::exchange(application.closing, true)) return;
    const auto closed = qScopeGuard([&application] { application.closing = false; });
    if (application.graphWindow) application.graphWindow->Canvas().Stop();
    CloseWhatIsOpen();
    for (const MessageBox& box : StoreTogether(application)) {
        show(box);
        StoreWithoutView(application);
    }
    RememberVisibleWindow(application);
}

}  // namespace

Flow ReturnToTable(Application& application) {
    const auto boxes = StoreOpenView(application);
    application.viewUnsaved = false;
    for (const MessageBox& box : boxes)
        co_await application.show(box);
    if (application.ended) co_return;
    TakeWindowPlace(*application.graphWindow, *application.editor);
    SetFullScreen(*application.graphWindow, false);
}

Flow ExitApplication(Application& application) {
    if (application.ended) co_return application.quit();
    if (application.graphWindow) application.graphWindow->Canvas().Stop();
    const auto boxes = StoreTogether(application);
    application.viewUnsaved = false;
    for (const MessageBox& box : boxes)
        co_await application.show(box);
    if (!application.ended) {  // an end from outside, while the box was open, has stored the rest
        application.ended = true;
        if (!boxes.empty()) StoreWithoutView(application);
        RememberVisibleWindow(application);
        ReleaseInstance(application.instance);
    }
    application.quit();
}

void StoreForSession(Application& application, const ShowMessage& show) {
    if (!application.ended) StoreEverything(application, show);
}

void EndApplication(Application& application, const ShowMessage& show) {
    if (application.ended) return;
    application.ended = true;
    auto notStored = qScopeGuard([&application] { application.ended = false; });
    StoreEverything(application, show);
    notStored.dismiss();
    ReleaseInstance(application.instance);
}

}  // namespace kalvex
