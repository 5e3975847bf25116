// The texts are stored before anything else is asked, so a warning never costs the user a line.
// What one Draw stores appears in the file at once. Only a box ends a batch before its time: what
// comes before the box must be stored when it opens, because the program may end while it is open.
#include "commands/draw_flow.h"

#include "graph/file_lines.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "workspace/function_list.h"

namespace kalvex {

namespace {

/// Prepares and stores the lines inside a batch, which is open before and after. When what comes
/// before a box cannot be stored, the box is not shown and the rest is left undone.
bool PrepareInBatch(FunctionList& functions, const EditorLines& lines, const Registry& registry,
                    const ShowMessage& show) {
    bool stored = true;
    const ShowMessage showBetween = [&](const MessageBox& box) {
        stored = CommitBatch(registry) && stored;
        const MessageAnswer answer = stored ? show(box) : MessageAnswer::Ok;
        BeginBatch(registry);
        return answer;
    };
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        if (!PrepareFunction(functions[index], slot, lines[index], showBetween) || !stored ||
            !StoreFunctionText(registry, slot, lines[index])) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool PrepareFunctions(FunctionList& functions, const EditorLines& lines, const Registry& registry,
                      const ShowMessage& show) {
    return WriteTogether(registry,
                         [&] { return PrepareInBatch(functions, lines, registry, show); });
}

bool RunDrawFlow(Workspace& workspace, const Registry& registry, const ShowMessage& show) {
    FunctionList& functions = workspace.functions;
    const bool stored = WriteTogether(registry, [&] {
        return PrepareInBatch(functions, workspace.lines, registry, show) &&
               StoreFunctionSettings(registry, functions);
    });
    if (!stored) return false;
    if (!AnySelected(workspace.functions)) {
        show(WarningBox(Text(StringId::MustChooseFunction)));
        return false;
    }
    return PrepareFileLines(workspace.functions, show);
}

}  // namespace kalvex
