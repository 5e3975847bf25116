// The texts are stored before anything else is asked, so a warning never costs the user a line. The
// lines are copied first: while a box is open, assistive technology can still change the editor.
#include "commands/draw_flow.h"

#include <utility>

#include "graph/file_lines.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

/// What follows when all lines have been prepared.
Flow CheckPrepared(Workspace& workspace, Registry registry, ShowBox show,
                   std::function<void()> ready) {
    FunctionList& functions = workspace.functions;
    if (!StoreFunctionSettings(registry, functions)) co_return;
    if (!AnySelected(functions)) {
        const MessageBox box = WarningBox(Text(StringId::MustChooseFunction));
        co_await show(box);
        co_return;
    }
    // Every question is asked, even after the answer No.
    bool passed = false;
    bool confirmed = true;
    const auto boxes =
        BoxesOf([&](const ShowMessage& tell) { passed = PrepareFileLines(functions, tell); });
    for (const MessageBox& box : boxes) {
        const MessageAnswer answer = co_await show(box);
        if (answer == MessageAnswer::Ended) co_return;
        confirmed = confirmed && answer == MessageAnswer::Yes;
    }
    if (passed && confirmed) ready();
}

}  // namespace

Flow PrepareFunctions(FunctionList& functions, EditorLines lines, Registry registry, ShowBox show,
                      std::function<void()> prepared) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        bool passed = false;
        const auto boxes = BoxesOf([&](const ShowMessage& tell) {
            passed = PrepareFunction(functions[index], slot, lines[index], tell);
        });
        for (const MessageBox& box : boxes) {
            const MessageAnswer answer = co_await show(box);
            if (answer == MessageAnswer::Ended) co_return;
        }
        if (!passed || !StoreFunctionText(registry, slot, lines[index])) co_return;
    }
    prepared();
}

void RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowBox& show,
                 std::function<void()> ready) {
    PrepareFunctions(workspace.functions, workspace.lines, registry, show,
                     [&workspace, registry, show, ready = std::move(ready)] {
                         CheckPrepared(workspace, registry, show, ready);
                     });
}

}  // namespace kalvex
