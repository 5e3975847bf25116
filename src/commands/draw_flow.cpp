// The texts are stored before anything else is asked, so a warning never costs the user a line. The
// lines are copied first: while a box is open, assistive technology can still change the editor.
// What one Draw stores appears in the file at once. Only a box ends a batch before its time: what
// comes before the box must be stored when it opens, because the program may end while it is open.
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
Flow CheckPrepared(Workspace& workspace, ShowBox show, std::function<void(bool ready)> done) {
    FunctionList& functions = workspace.functions;
    if (!AnySelected(functions)) {
        const MessageBox box = WarningBox(Text(StringId::MustChooseFunction));
        co_await show(box);
        co_return done(false);
    }
    bool passed = false;
    bool confirmed = true;
    const auto boxes =
        BoxesOf([&](const ShowMessage& tell) { passed = PrepareFileLines(functions, tell); });
    for (const MessageBox& box : boxes) {  // every question is asked, even after the answer No
        const MessageAnswer answer = co_await show(box);
        if (answer == MessageAnswer::Ended) co_return done(false);
        confirmed = confirmed && answer == MessageAnswer::Yes;
    }
    done(passed && confirmed);
}

}  // namespace

Flow PrepareFunctions(FunctionList& functions, EditorLines lines, Registry registry, ShowBox show,
                      std::function<bool()> storeMore, std::function<void(bool passed)> done) {
    Batch batch(registry);  // what was written before a failure stays
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        bool passed = false;
        const auto boxes = BoxesOf([&](const ShowMessage& tell) {
            passed = PrepareFunction(functions[index], slot, lines[index], tell);
        });
        for (const MessageBox& box : boxes) {
            if (!batch.Commit()) co_return done(false);
            const MessageAnswer answer = co_await show(box);
            if (answer == MessageAnswer::Ended) co_return done(false);
            batch.Begin();
        }
        if (passed && StoreFunctionText(registry, slot, lines[index])) continue;
        static_cast<void>(batch.Commit());
        co_return done(false);
    }
    const bool stored = !storeMore || storeMore();
    done(batch.Commit() && stored);
}

void RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowBox& show,
                 std::function<void(bool ready)> done) {
    const auto storeSettings = [&workspace, registry] {
        return StoreFunctionSettings(registry, workspace.functions);
    };
    PrepareFunctions(workspace.functions, workspace.lines, registry, show, storeSettings,
                     [&workspace, show, done = std::move(done)](bool passed) {
                         if (!passed) return done(false);
                         CheckPrepared(workspace, show, done);
                     });
}

}  // namespace kalvex
